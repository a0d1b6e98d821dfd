# a sign or a blank in a number is refused, as grade and count refuse it
solve @DATA@/puzzles/pe96.sud +5
