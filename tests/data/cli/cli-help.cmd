# the usage
--help
