# expected narration of kaggle3m_expert-501-start (raw: every line keeps its two-digit style)
solve @DATA@/puzzles/singles.sud 8 --raw
