# no distribution
create --blanks 30
