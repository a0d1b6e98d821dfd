# the coach's verdict on a placement a technique forces, after two moves played first
hint @DATA@/puzzles/pe96.sud 1 --judge 2 8 --after 6=1,16=8
