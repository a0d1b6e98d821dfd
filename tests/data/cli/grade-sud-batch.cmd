# every puzzle of a collection file
grade @DATA@/puzzles/hardest.sud
