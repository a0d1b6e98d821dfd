# no rule given
hint @DATA@/puzzles/pe96.sud 1
