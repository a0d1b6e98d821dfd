# the board as line 40 of the narration saw it (the first duplicate removals of Rule 1 made)
solve @DATA@/puzzles/pe96.sud 1 --run solve --board-at 40
