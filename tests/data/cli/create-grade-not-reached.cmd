# twenty blanks never make a Diabolical puzzle
create --blanks 20 --distribution random --seed 2 --grade 5 --grade-tries 5
