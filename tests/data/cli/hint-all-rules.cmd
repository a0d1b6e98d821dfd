# all rules in a given order
hint @DATA@/puzzles/top95.sud 20 --rule all --rule-order 65432
