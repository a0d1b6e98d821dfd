# create until the puzzle is Fiendish
create --blanks 56 --distribution random --seed 2 --unique --grade 4
