# a missing template
create --blanks 30 --distribution manual --template nowhere.txt
