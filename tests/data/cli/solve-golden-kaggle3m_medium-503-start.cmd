# expected narration of kaggle3m_medium-503-start (raw: every line keeps its two-digit style)
solve @DATA@/puzzles/singles.sud 6 --raw
