# the solved puzzle as text
export @DATA@/puzzles/pe96.sud 1 --txt p1.txt
