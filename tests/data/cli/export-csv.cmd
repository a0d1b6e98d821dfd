# the solved puzzle as CSV
export @DATA@/puzzles/pe96.sud 1 --csv p1.csv
