# a puzzle that needs an X-Wing: graded with every technique, X-Wing is the hardest it uses
create --blanks 56 --distribution random --unique --needs x-wing --seed 2 --grade-tries 3000
