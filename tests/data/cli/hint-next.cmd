# the next step of the techniques turned on: the finding, then its removals
hint @DATA@/puzzles/top95.sud 2 --rule next --techniques all
