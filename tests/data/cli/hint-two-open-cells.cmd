# two open cells, both singles: the "solved" of the "Place additional" line is told
hint two-open.sud 1 --rule 1
