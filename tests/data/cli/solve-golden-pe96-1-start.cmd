# expected narration of pe96-1-start (raw: every line keeps its two-digit style)
solve @DATA@/puzzles/pe96.sud 1 --raw
