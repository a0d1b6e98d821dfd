# a template of blanks only falls back to Random
create --blanks 20 --distribution manual --template t.txt --seed 1
