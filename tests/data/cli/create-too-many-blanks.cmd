# 73 blanks are refused
create --blanks 73 --distribution random
