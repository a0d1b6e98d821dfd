# no arguments: the usage as an error

