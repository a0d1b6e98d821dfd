# --rule and --judge exclude each other
hint @DATA@/puzzles/pe96.sud 1 --rule 1 --judge 1 4
