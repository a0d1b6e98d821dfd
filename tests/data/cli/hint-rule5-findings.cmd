# Rule 5's own "Set row" findings come before "Place additional" and are not taken for placements
hint @DATA@/puzzles/pe96.sud 1 --rule 5
