# --solutions without its number
count @DATA@/puzzles/pe96.sud --solutions
