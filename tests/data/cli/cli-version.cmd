# the program name and version
--version
