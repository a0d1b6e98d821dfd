# help prints the same usage
help
