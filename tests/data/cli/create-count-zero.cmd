# a count of 0
create --blanks 30 --distribution mirror --count 0
