# a one-per-line list under a title line counts its puzzles, as grade reads them
count list.txt
