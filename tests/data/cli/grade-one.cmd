# the grade of puzzle 3 of a collection
grade @DATA@/puzzles/top95.sud 3
