# an argument too many
count @DATA@/puzzles/pe96.sud extra
