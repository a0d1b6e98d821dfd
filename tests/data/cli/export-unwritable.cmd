# an unwritable folder gets a message
export @DATA@/puzzles/pe96.sud 1 --txt /nonexistent-folder/p.txt
