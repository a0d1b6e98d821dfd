# the solved puzzle as an OpenDocument spreadsheet
export @DATA@/puzzles/pe96.sud 1 --ods p1.ods
