# the framed report without the log
export @DATA@/puzzles/pe96.sud 1 --report r.txt
