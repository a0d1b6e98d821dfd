# rule 7
hint @DATA@/puzzles/pe96.sud 1 --rule 7
