# a template without Manual
create --blanks 30 --distribution random --template t.txt
