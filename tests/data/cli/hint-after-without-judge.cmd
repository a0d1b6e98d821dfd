# --after belongs to --judge
hint @DATA@/puzzles/pe96.sud 1 --rule 1 --after 1=4
