# with further techniques each line adds the hardest technique and the guesses (0: logic alone)
grade @DATA@/puzzles/hardest.sud --techniques all --jobs 1
