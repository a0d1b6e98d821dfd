# alternating inference chains with grouped nodes
solve @DATA@/puzzles/hardest.sud 5 --run solve --techniques all
