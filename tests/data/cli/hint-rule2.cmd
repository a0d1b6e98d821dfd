# one rule's report (exchange_diabolical 1038)
hint @DATA@/puzzles/singles.sud 3 --rule 2
