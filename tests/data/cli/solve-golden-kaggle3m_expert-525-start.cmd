# expected narration of kaggle3m_expert-525-start (raw: every line keeps its two-digit style)
solve @DATA@/puzzles/singles.sud 9 --raw
