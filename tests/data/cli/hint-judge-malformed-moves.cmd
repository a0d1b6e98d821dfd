# moves must read CELL=DIGIT
hint @DATA@/puzzles/pe96.sud 1 --judge 1 4 --after 41:7
