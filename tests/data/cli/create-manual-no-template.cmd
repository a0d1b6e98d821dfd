# Manual without a template: the dialog's all-X text has no blanks; told once, then Random for both
create --blanks 33 --distribution manual --count 2 --seed 1
