# an unknown technique name is refused with the valid ones
grade @DATA@/puzzles/hardest.sud --techniques x-wing,bogus
