#!/usr/bin/env bash
# Rebuilds data/Puzzles.sud, the default collection: 125 puzzles taken from
# public puzzle sets, each with exactly one solution, ordered from easy to hard
# by Tessaly's own solver. The puzzles taken are kept, with the set and line
# each comes from, in tests/data/puzzles/default-collection-picks.txt (the
# sources are in tests/data/README.md), so the script needs nothing outside
# the repository.
#
# Puzzles taken (the numbers are line numbers of each set's one-per-line
# file, which are also the puzzle numbers of its collection file):
#
#   pe96 (13):                1 2 5 9 15 16 19 28 29 36 45 47 49
#   kaggle3m_beginner (15):   19 24 55 73 114 115 119 121 132 222 223 226 238 239 294
#   kaggle3m_easy (21):       2 14 15 26 43 47 56 67 73 83 114 122 135 140 154 179 212
#                             221 229 269 283
#   kaggle3m_medium (20):     2 44 101 108 118 137 138 148 153 162 166 170 177 220 235
#                             243 264 265 278 286
#   kaggle3m_hard (13):       28 35 40 76 104 107 143 146 152 198 227 287 289
#   kaggle3m_expert (10):     25 125 136 139 141 156 159 180 207 221
#   sudoku17 (9):             12 53 67 94 203 243 249 257 290
#   exchange_diabolical (8):  6 8 38 42 43 147 240 244
#   top95 (8):                17 33 36 44 82 89 90 94
#   hardest (8):              2 3 4 5 7 9 10 11
#
# They were picked so that every level of difficulty is represented: from
# puzzles the rules solve without a single guess to puzzles that need many
# retractions, and a few (at most 10) that exhaust the default limit of 250
# attempts.
#
# Order: each puzzle is solved with `tessaly-cli solve FILE N --run solve
# --seed 1` and sorted by
#   1. whether the solve ended with "Tried 250 times, solution aborted" (those last),
#   2. the number of retries ("Solved with no re-tries" counts as 0),
#   3. the number of placements (lines beginning "Set row"),
#   4. the position in the list above.
# Every puzzle is first checked with `tessaly-cli count FILE --solutions N`,
# which must print 1.
#
# Usage: data/make-puzzles.sh [OUTPUT]     (default OUTPUT: data/Puzzles.sud)
# Environment: TESSALY_CLI      the command line program (default build/src/cli/tessaly-cli)
#              TESSALY_PUZZLES  a folder holding the full sets as NAME.txt (one
#                               puzzle a line): each pick is then checked
#                               against its line there
# Needs bash, coreutils, sed, grep and sort; nothing else.
set -euo pipefail

here="$(cd "$(dirname "$0")" && pwd)"
repo="$(dirname "$here")"
cli="${TESSALY_CLI:-$repo/build/src/cli/tessaly-cli}"
sets="${TESSALY_PUZZLES:-}"
picks_file="$repo/tests/data/puzzles/default-collection-picks.txt"
output="${1:-$here/Puzzles.sud}"
readonly max_aborted=10 expected=125

picks=(
  "pe96: 1 2 5 9 15 16 19 28 29 36 45 47 49"
  "kaggle3m_beginner: 19 24 55 73 114 115 119 121 132 222 223 226 238 239 294"
  "kaggle3m_easy: 2 14 15 26 43 47 56 67 73 83 114 122 135 140 154 179 212 221 229 269 283"
  "kaggle3m_medium: 2 44 101 108 118 137 138 148 153 162 166 170 177 220 235 243 264 265 278 286"
  "kaggle3m_hard: 28 35 40 76 104 107 143 146 152 198 227 287 289"
  "kaggle3m_expert: 25 125 136 139 141 156 159 180 207 221"
  "sudoku17: 12 53 67 94 203 243 249 257 290"
  "exchange_diabolical: 6 8 38 42 43 147 240 244"
  "top95: 17 33 36 44 82 89 90 94"
  "hardest: 2 3 4 5 7 9 10 11"
)

die() {
  echo "make-puzzles: $*" >&2
  exit 1
}

[ -x "$cli" ] || die "command line program not found: $cli (build it first, or set TESSALY_CLI)"
cli="$(cd "$(dirname "$cli")" && pwd)/$(basename "$cli")"  # the runs below change folder
[ -f "$picks_file" ] || die "list of picks not found: $picks_file"
[ -z "$sets" ] || [ -d "$sets" ] || die "puzzle sets not found: $sets"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# Appends one puzzle of 81 characters to a collection under header "#number",
# with an empty line before every header but the first; CR LF throughout.
append_puzzle() {
  local file="$1" number="$2" puzzle="$3" row
  [ "$number" -gt 1 ] && printf '\r\n' >>"$file"
  printf '#%d\r\n' "$number" >>"$file"
  for row in 0 9 18 27 36 45 54 63 72; do
    printf '%s\r\n' "${puzzle:row:9}" >>"$file"
  done
}

# 1. The candidates, in list order, as a collection of their own.
candidates="$work/candidates.sud"
puzzles=()
# The picks file must list exactly the picks above, in the same order.
listed="$(for entry in "${picks[@]}"; do for n in ${entry#*:}; do echo "${entry%%:*} $n"; done; done)"
[ "$listed" = "$(cut -d' ' -f1,2 "$picks_file")" ] || die "$picks_file does not list the picks of this script"
while read -r name n puzzle; do
  puzzle="${puzzle//0/.}"
  [[ "$puzzle" =~ ^[1-9.]{81}$ ]] || die "$name line $n is not a puzzle of 81 cells"
  if [ -n "$sets" ]; then
    [ -f "$sets/$name.txt" ] || die "missing set: $sets/$name.txt"
    from_set="$(sed -n "${n}p" "$sets/$name.txt" | tr -d '\r')"
    [ "${from_set//0/.}" = "$puzzle" ] || die "$name line $n differs from $sets/$name.txt"
  fi
  puzzles+=("$puzzle")
  append_puzzle "$candidates" "${#puzzles[@]}" "$puzzle"
done <"$picks_file"
[ "${#puzzles[@]}" -eq "$expected" ] || die "the list holds ${#puzzles[@]} puzzles, not $expected"
duplicates="$(printf '%s\n' "${puzzles[@]}" | LC_ALL=C sort | uniq -d)"
[ -z "$duplicates" ] || die "a puzzle is listed twice: $duplicates"

# 2. Check and rate each one (a solve that gives up says so in a message on
# standard error, hence 2>&1). The solver writes its event log into the current
# folder, so it runs in the scratch folder.
keys="$work/keys"
: >"$keys"
aborted_total=0
for ((i = 1; i <= expected; i++)); do
  solutions="$(cd "$work" && "$cli" count "$candidates" --solutions "$i")"
  [ "$solutions" = "1" ] || die "puzzle ${puzzles[i - 1]} has $solutions solutions, not 1"
  narration="$(cd "$work" && "$cli" solve "$candidates" "$i" --run solve --seed 1 2>&1 || true)"
  placements="$(grep -c '^Set row' <<<"$narration" || true)"
  if grep -q 'Tried [0-9]* times, solution aborted' <<<"$narration"; then
    aborted=1 retries=0
    aborted_total=$((aborted_total + 1))
  elif grep -q '^Solved with no re-tries' <<<"$narration"; then
    aborted=0 retries=0
  else
    retries="$(sed -n 's/^Solved with \([0-9][0-9]*\) retries.*/\1/p' <<<"$narration" | tail -n 1)"
    [ -n "$retries" ] || die "puzzle ${puzzles[i - 1]}: the solve reported no outcome"
    aborted=0
  fi
  printf '%d %d %d %d %s\n' "$aborted" "$retries" "$placements" "$i" "${puzzles[i - 1]}" >>"$keys"
done
[ "$aborted_total" -le "$max_aborted" ] ||
  die "$aborted_total puzzles exhaust the attempts; at most $max_aborted may"

# 3. Write the collection in that order.
sorted="$work/sorted.sud"
: >"$sorted"
number=0
while read -r _ _ _ _ puzzle; do
  number=$((number + 1))
  append_puzzle "$sorted" "$number" "$puzzle"
done < <(LC_ALL=C sort -n -k1,1 -k2,2 -k3,3 -k4,4 "$keys")
[ "$("$cli" count "$sorted")" = "$expected" ] || die "the new collection does not hold $expected puzzles"
cp "$sorted" "$output"
echo "make-puzzles: wrote $expected puzzles to $output ($aborted_total of them exhaust the attempts)"
