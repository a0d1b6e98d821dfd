# The count is the number the text starts with: 030blanks asks for 30, as in create-random
create --blanks 030blanks --distribution random --seed 4
