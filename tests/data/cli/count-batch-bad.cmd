# bad lines (80 and 82 cells, a letter, a repeated given) are told and skipped; exit status 2
count --solutions bad.txt --jobs 2
