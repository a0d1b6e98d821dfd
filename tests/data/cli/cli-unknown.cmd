# an unknown subcommand
frobnicate x
