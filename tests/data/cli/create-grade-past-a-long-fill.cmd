# one of this seed's grids once needed more than 250 placements to complete: the grade search goes on past it
create --blanks 56 --distribution mirror --unique --grade 5 --seed 18
