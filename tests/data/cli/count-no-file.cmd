# no file named
count
