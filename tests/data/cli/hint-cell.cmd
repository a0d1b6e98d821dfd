# the cell hint is a message
hint @DATA@/puzzles/pe96.sud 1 --rule cell
