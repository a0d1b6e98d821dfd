# expected narration of kaggle3m_medium-506-solve (raw: every line keeps its two-digit style)
solve @DATA@/puzzles/singles.sud 7 --run solve --raw
