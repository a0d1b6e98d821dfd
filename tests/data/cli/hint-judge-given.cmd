# a given cannot be judged
hint @DATA@/puzzles/pe96.sud 1 --judge 3 3
