# a further technique that places the digit itself
hint @DATA@/puzzles/top95.sud 1 --judge 6 9 --techniques all
