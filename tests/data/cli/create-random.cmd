# Random: exactly the count
create --blanks 30 --distribution random --seed 4
