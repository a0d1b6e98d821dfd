# all rules: only the first "Place additional" line counts its singles, and the placements read are the ones right after it, not later ones nor Rule 5's own "Set row" reductions
hint @DATA@/puzzles/pe96.sud 7 --rule all
