# the grade of the one puzzle of a nine-line grid file
grade grid.txt 1
