# all rules where some find singles: Rules 1 to 6 in their number order, whatever the rule order
hint @DATA@/puzzles/singles.sud 5 --rule all --rule-order 65432
