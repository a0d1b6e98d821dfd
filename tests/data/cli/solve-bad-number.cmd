# a puzzle number that is not a number
solve @DATA@/puzzles/pe96.sud x
