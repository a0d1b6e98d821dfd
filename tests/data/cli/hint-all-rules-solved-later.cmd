# all rules: "solved" told by a later "Place additional" line, not the first
hint @DATA@/puzzles/pe96.sud 35 --rule all
