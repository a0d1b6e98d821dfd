# a binary file is refused
grade prog.bin
