#!/usr/bin/env bash
# Checks that an office suite reads the spreadsheet export: the command line
# writes puzzle 1 of tests/data/puzzles/pe96.sud, solved, as solved.xls,
# LibreOffice converts it to CSV, and the cells must hold the puzzle's givens
# (rows 3-11) and its solution (rows 15-23) in columns B-J, with the PUZZLE and
# SOLUTION labels in B1 and B13. The test suite checks the file byte for byte;
# this script is kept apart from it because it needs LibreOffice (soffice on
# PATH). Run it after building tessaly-cli in build/.
set -euo pipefail
cd "$(dirname "$0")/.."
name=check-xls-with-libreoffice
cli=build/src/cli/tessaly-cli
puzzles=tests/data/puzzles/pe96.sud

if ! command -v soffice > /dev/null; then
  echo "$name: soffice is not on PATH: install LibreOffice Calc (e.g. apt-get install libreoffice-calc-nogui) to run this check" >&2
  exit 2
fi
[ -x "$cli" ] || { echo "$name: $cli is missing: build the target tessaly-cli in build/ first" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if ! "$cli" export "$puzzles" 1 --xls "$work/solved.xls" > "$work/cli.log" 2>&1; then
  echo "$name: tessaly-cli could not write solved.xls:" >&2
  cat "$work/cli.log" >&2
  exit 1
fi
# A profile of its own, so that neither a running LibreOffice nor the user's
# settings get in the way.
if ! timeout 300 soffice -env:UserInstallation="file://$work/profile" --headless \
    --convert-to csv --outdir "$work" "$work/solved.xls" > "$work/soffice.log" 2>&1 || [ ! -s "$work/solved.csv" ]; then
  echo "$name: soffice could not convert solved.xls to CSV:" >&2
  cat "$work/soffice.log" >&2
  exit 1
fi

# Row 1, rows 3-11, row 13 and rows 15-23 of the sheet, columns B-J run
# together, an empty cell as "." (text cells may come quoted).
tr -d '\r"' < "$work/solved.csv" | awk -F, '
  NR == 1 || NR == 13 { print $2 }
  (NR >= 3 && NR <= 11) || (NR >= 15 && NR <= 23) {
    row = ""
    for (col = 2; col <= 10; ++col) row = row ($col == "" ? "." : $col)
    print row
  }' > "$work/cells.txt"

{
  echo PUZZLE
  # The givens as the collection file writes them: the nine rows after "#1".
  tr -d '\r' < "$puzzles" | sed -n '2,10p'
  echo SOLUTION
  # Project Euler's Grid 01, solved.
  printf '%s\n' 483921657 967345821 251876493 548132976 729564138 136798245 372689514 814253769 695417382
} > "$work/expected.txt"

if ! diff -u "$work/expected.txt" "$work/cells.txt"; then
  echo "$name: the cells LibreOffice read from solved.xls differ from the puzzle and its solution (- expected, + read)" >&2
  exit 1
fi
echo "$name: LibreOffice reads solved.xls with the puzzle and its solution in place"
