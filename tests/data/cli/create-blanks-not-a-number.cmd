# A count that is not a number is refused as too few blanks
create --blanks abc --distribution random
