# one rule's report (exchange_diabolical 1875)
hint @DATA@/puzzles/singles.sud 4 --rule 4
