# a one-per-line file counts its good lines
count lines.txt
