# by Box: 4 blanks a box, saved into a collection
create --blanks 40 --distribution box --count 3 --into Mine.sud --seed 2
