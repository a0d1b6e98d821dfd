# Rule 1 solves the puzzle: told once, the placements read after the "Place additional" line
hint @DATA@/puzzles/pe96.sud 1 --rule 1
