# only puzzles with one solution: blanks that allow a second are given back, symmetrically
create --blanks 64 --distribution mirror --seed 5 --count 2 --unique
