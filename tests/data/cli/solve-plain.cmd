# without --raw the style prefix is dropped
solve @DATA@/puzzles/pe96.sud 1
