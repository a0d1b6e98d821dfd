# no options
create
