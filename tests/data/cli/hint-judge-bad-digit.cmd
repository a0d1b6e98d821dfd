# --judge takes a cell and a digit
hint @DATA@/puzzles/pe96.sud 1 --judge 1 10
