# a puzzle with several solutions: the coach cannot judge
hint @DATA@/puzzles/singles.sud 10 --judge 2 1
