# a hidden single: the coach names the box
hint @DATA@/puzzles/pe96.sud 1 --judge 6 1
