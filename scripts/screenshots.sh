#!/usr/bin/env bash
# Makes the README's pictures of the window (docs/*.png) on a virtual display:
# a stepped solve in progress, a new puzzle on the Create tab, and a puzzle
# partly played by hand; and the help page's picture of an earlier line of the
# log shown on the board (data/replay.png, shipped beside the help page), and
# for each further technique a real finding of it in the shipped collection,
# replayed (data/techniques/NAME.png, for the help page's sections). A technique
# no shipped puzzle needs is looked for in scripts/technique-puzzles.sud, public
# puzzles kept for that (sources in its header below). Run it after ./run or ./test has built the program.
# The virtual screen is 1366x768, a small laptop's: the script fails when a tab
# needs more room than that. The ManualSolve tab, the tallest, is also taken on
# a 1280x720 screen (docs/manual-1280x720.png).
#
# The program is copied with its shipped data into a neutral folder,
# /tmp/Tessaly, and started from there, so the pictures show that folder and
# no path of the machine that made them.
#
# scripts/technique-puzzles.sud, one puzzle per technique no shipped puzzle
# shows: #1 hidden quad, #2 Skyscraper, #3 BUG+1 (puzzles 38, 341 and 114 of
# the "Medium" level of the Kaggle "3 million Sudoku puzzles with ratings" set,
# CC0, as sampled in steven004/goldenfox-sudoku Data/sudoku_curated_5000.csv),
# #4 unit forcing chain (puzzle 2 of the public "top1465" list).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
program="$top/build/src/ui/tessaly"
[ -x "$program" ] || { echo "Build the program first (./test or ./run)." >&2; exit 1; }
command -v xvfb-run > /dev/null || { echo "xvfb-run is missing: apt-get install xvfb xauth" >&2; exit 1; }

place=/tmp/Tessaly
[ -e "$place" ] && { echo "$place is in the way: remove it first." >&2; exit 1; }
trap 'rm -rf "$place"' EXIT
mkdir -p "$place" "$top/docs"
cp "$program" "$top/build/src/cli/tessaly-cli" "$place/"
(cd "$top/data" && cp Puzzles.sud Permu.txt SuDoKu.htm ./*.sch "$place/")
cp "$top/scripts/technique-puzzles.sud" "$place/Techniques.sud"

# Each picture as TAB[@SCREEN]: the window fills the virtual screen.
for shot in autosolve create manual replay manual@1280x720; do
  tab=${shot%@*} screen=1366x768 picture="docs/$shot.png"
  if [ "$shot" != "$tab" ]; then
    screen=${shot#*@}
    picture="docs/$tab-$screen.png"
  fi
  [ "$tab" = replay ] && picture="data/$tab.png"
  # Each picture starts from the shipped state: no configuration left by the one before.
  rm -f "$place/Quorrel.cfg" "$place/PuzTemp.sud"
  (cd "$place" && xvfb-run -a -s "-screen 0 ${screen}x24" ./tessaly --screenshot "$tab" "$top/$picture")
  echo "$picture"
done

# The techniques' names, as the command line lists them.
names=$( ("$place/tessaly-cli" grade /dev/null --techniques '?' 2>&1 || true) | sed -n 's/.*list of: //p' | tr -d ',')
mkdir -p "$top/data/techniques"
for name in $names; do
  made=
  for source in "" "$place/Techniques.sud"; do
    rm -f "$place/Quorrel.cfg" "$place/PuzTemp.sud"
    if (cd "$place" && xvfb-run -a -s "-screen 0 1366x768x24" ./tessaly --screenshot "technique:$name" \
          "$top/data/techniques/$name.png" $source 2>/dev/null); then
      made=yes
      echo "data/techniques/$name.png"
      break
    fi
  done
  [ -n "$made" ] || echo "no picture for $name: no puzzle at hand needs it"
done
