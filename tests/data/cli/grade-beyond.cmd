# a puzzle number beyond the collection
grade @DATA@/puzzles/hardest.sud 12
