# puzzle 2 of a one-per-line file; the bad line is told once
solve lines.txt 2 --run solve
