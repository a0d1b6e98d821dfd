# Manual: the template's one blank
create --blanks 20 --distribution manual --template t.txt --seed 1
