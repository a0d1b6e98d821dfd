# repeated givens: no solution; the file still counts one puzzle
count bad.sud --solutions 1
