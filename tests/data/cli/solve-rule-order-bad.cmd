# a rule order the window would refuse
solve @DATA@/puzzles/pe96.sud 1 --rule-order zz9%
