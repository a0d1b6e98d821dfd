# a template that cannot be used falls back to Random
create --blanks 20 --distribution manual --template t.txt --seed 1
