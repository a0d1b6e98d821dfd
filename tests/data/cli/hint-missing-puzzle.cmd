# a puzzle beyond the last
hint @DATA@/puzzles/pe96.sud 9999 --rule 1
