# a right digit that nothing turned on forces yet
hint @DATA@/puzzles/pe96.sud 1 --judge 1 4
