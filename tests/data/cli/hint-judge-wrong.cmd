# the command line always tells a wrong move
hint @DATA@/puzzles/pe96.sud 1 --judge 1 5
