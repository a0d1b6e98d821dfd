# the number of puzzles in a collection
count @DATA@/puzzles/top95.sud
