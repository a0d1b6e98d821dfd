#!/usr/bin/env bash
# Counts and creates with tessaly-cli and, when it is installed, with Debian's
# qqwing in the same run, and prints the processor time each took (user plus
# system, one job each) and their ratio. Processor time is compared, not the
# wall clock, so that other work on the machine does not tilt the figures.
#
#   scripts/compare-qqwing.sh PUZZLES [COUNT]
#
# PUZZLES: a one-per-line file (81 characters a line), e.g. 10,000 17-clue
# puzzles; COUNT: how many unique puzzles to create (2,000 by default).
# Run it after ./run or ./test has built the program (TESSALY_CLI names
# another tessaly-cli).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cli=${TESSALY_CLI:-"$top/build/src/cli/tessaly-cli"}
[ -x "$cli" ] || { echo "Build the program first (./test or ./run)." >&2; exit 1; }
[ $# -ge 1 ] && [ -r "$1" ] || { echo "Usage: $0 PUZZLES [COUNT]" >&2; exit 2; }
puzzles=$1 count=${2:-2000}
# qqwing comes from Debian's package of that name; installed here when we may.
if ! command -v qqwing > /dev/null && command -v apt-get > /dev/null; then
  sudo=""
  [ "$(id -u)" = 0 ] || sudo="sudo -n"
  $sudo apt-get install -y -q qqwing > /dev/null 2>&1 || echo "qqwing is not installed: only tessaly-cli is measured." >&2
fi
lines=$(grep -c . "$puzzles")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Processor seconds (user + system) of a command, its output thrown away.
cpu() {
  local t TIMEFORMAT='%U %S'
  t=$( { time "$@" > /dev/null 2>&1; } 2>&1 )
  awk '{ printf "%.3f", $1 + $2 }' <<< "$t"
}

rate() { awk -v n="$1" -v s="$2" 'BEGIN { printf "%.0f/s", (s > 0 ? n / s : 0) }'; }

echo "Counting the solutions of $lines puzzles of $puzzles (stop at 2), one job:"
ours=$(cpu "$cli" count --solutions "$puzzles" --jobs 1)
echo "  tessaly-cli count --solutions: ${ours} s, $(rate "$lines" "$ours")"
if command -v qqwing > /dev/null; then
  theirs=$(cpu sh -c "qqwing --solve --count-solutions --nosolution < '$puzzles'")
  echo "  qqwing --solve --count-solutions: ${theirs} s, $(rate "$lines" "$theirs")"
  awk -v a="$theirs" -v b="$ours" 'BEGIN { printf "  ratio: tessaly-cli is %.1f times as fast\n", a / b }'
fi

echo "Creating $count puzzles with one solution (56 blanks, random), into one file:"
ours=$(cd "$work" && cpu "$cli" create --blanks 56 --distribution random --unique --count "$count" --into "$work/new.sud" --seed 1)
echo "  tessaly-cli create: ${ours} s, $(rate "$count" "$ours")"
if command -v qqwing > /dev/null; then
  theirs=$(cpu qqwing --generate "$count" --one-line)
  echo "  qqwing --generate: ${theirs} s, $(rate "$count" "$theirs")"
  awk -v a="$theirs" -v b="$ours" 'BEGIN { printf "  ratio: tessaly-cli is %.1f times as fast\n", a / b }'
fi
