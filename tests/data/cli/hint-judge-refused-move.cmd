# a move the board refuses: the manual play's message, then which move
hint @DATA@/puzzles/pe96.sud 1 --judge 1 4 --after 1=4,2=7
