# several solutions: the first guess is drawn, and --seed makes it repeatable
solve @DATA@/puzzles/singles.sud 10 --seed 7
