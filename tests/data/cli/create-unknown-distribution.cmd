# an unknown distribution
create --blanks 30 --distribution diagonal
