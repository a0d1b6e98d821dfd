# chains and forcing chains told as a reader follows them, and a guess where none of them helps
solve @DATA@/puzzles/hardest.sud 2 --run solve --techniques all
