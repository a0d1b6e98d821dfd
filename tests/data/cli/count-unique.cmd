# one solution
count @DATA@/puzzles/pe96.sud --solutions 1
