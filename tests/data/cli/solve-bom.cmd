# a UTF-8 byte-order mark does not shift the puzzle numbers
solve bom.sud 1 --board-at 1
