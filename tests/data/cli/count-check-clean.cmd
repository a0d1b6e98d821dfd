# a whole collection passes
count good.sud --check
