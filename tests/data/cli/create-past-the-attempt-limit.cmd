# the attempt limit is narrated solving's: creation's silent fill goes past it
create --blanks 30 --distribution random --max-tries 5 --seed 1
