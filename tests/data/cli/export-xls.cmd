# the solved puzzle as a spreadsheet
export @DATA@/puzzles/pe96.sud 1 --xls p1.xls
