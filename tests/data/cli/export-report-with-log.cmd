# the framed report with the event log
export @DATA@/puzzles/pe96.sud 1 --report r.txt --with-log
