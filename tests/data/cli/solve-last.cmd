# -1 reads the last puzzle (the same output as 50)
solve @DATA@/puzzles/pe96.sud -1 --run solve
