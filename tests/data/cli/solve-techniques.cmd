# the further techniques take over where the six rules stall: no guess, the forcing chains told step by step, their counts after the rules' statistics
solve @DATA@/puzzles/top95.sud 1 --run solve --techniques all
