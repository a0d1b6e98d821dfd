# a digit a naked pair forces: the pair named, then the single it leaves
hint @DATA@/puzzles/pe96.sud 1 --judge 70 7
