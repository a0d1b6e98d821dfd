# empty rows leave their cells blank
count empty.sud --solutions 1
