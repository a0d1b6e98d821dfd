# into a file of one bare grid: both puzzles stay readable as a numbered collection
create --blanks 40 --distribution box --count 1 --into Grid.txt --seed 2
