# two Mirror puzzles (41 asks for 40 blanks), each appended to PuzTemp.sud
create --blanks 41 --distribution mirror --count 2 --seed 9
