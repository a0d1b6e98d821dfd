# one rule's report (kaggle3m_easy 181)
hint @DATA@/puzzles/singles.sud 5 --rule 6
