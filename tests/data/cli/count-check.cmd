# every damaged record by its line; exit status 1 when there is one
count damaged.sud --check
