# no target
export @DATA@/puzzles/pe96.sud 1
