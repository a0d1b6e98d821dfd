# the placement limit: nothing created, exit 1
create --blanks 30 --distribution random --max-tries 5 --seed 1
