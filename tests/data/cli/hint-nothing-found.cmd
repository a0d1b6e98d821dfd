# a rule that finds nothing
hint @DATA@/puzzles/top95.sud 20 --rule 6
