# a puzzle number beyond the last puzzle
solve @DATA@/puzzles/pe96.sud 51
