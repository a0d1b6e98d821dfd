# two targets
export @DATA@/puzzles/pe96.sud 1 --csv a --txt b
