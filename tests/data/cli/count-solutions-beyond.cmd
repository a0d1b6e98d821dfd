# a puzzle beyond the last
count @DATA@/puzzles/pe96.sud --solutions 51
