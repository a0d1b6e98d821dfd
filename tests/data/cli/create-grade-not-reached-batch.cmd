# a grade out of reach ends a batch with one message
create --blanks 20 --distribution random --seed 2 --grade 5 --grade-tries 2 --count 3
