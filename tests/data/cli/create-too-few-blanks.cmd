# 8 blanks are refused
create --blanks 8 --distribution random
