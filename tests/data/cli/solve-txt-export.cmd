# the program's own TXT export reads as one puzzle
solve exported.txt 1 --board-at 1
