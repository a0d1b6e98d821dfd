# grades run from 1 to 5
create --blanks 40 --distribution random --grade 6
