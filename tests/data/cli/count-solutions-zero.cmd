# puzzle 0
count @DATA@/puzzles/pe96.sud --solutions 0
