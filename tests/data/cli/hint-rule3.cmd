# one rule's report (exchange_diabolical 9)
hint @DATA@/puzzles/singles.sud 1 --rule 3
