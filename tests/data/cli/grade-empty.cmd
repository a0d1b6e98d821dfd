# an empty file holds no puzzles
grade empty.txt
