# --needs takes the name of one further technique
create --blanks 56 --distribution random --needs rule2
