# every puzzle of a one-per-line file, in input order
grade mixed.txt
