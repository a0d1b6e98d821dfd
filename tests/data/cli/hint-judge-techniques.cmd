# with all techniques on
hint @DATA@/puzzles/top95.sud 1 --judge 3 7 --techniques all
