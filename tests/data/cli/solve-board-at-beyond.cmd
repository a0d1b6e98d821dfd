# a line beyond the log: told on standard error, no board
solve @DATA@/puzzles/pe96.sud 1 --run solve --board-at 179
