# PuzTemp.sud keeps what it holds: the new record is appended
create --blanks 30 --distribution random --seed 4
