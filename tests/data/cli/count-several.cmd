# several solutions
count @DATA@/puzzles/singles.sud --solutions 10
