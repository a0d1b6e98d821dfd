# one rule's report (exchange_diabolical 118)
hint @DATA@/puzzles/singles.sud 2 --rule 5
