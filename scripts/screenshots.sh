#!/usr/bin/env bash
# Makes the README's pictures of the window (docs/*.png) on a virtual display:
# a stepped solve in progress, a new puzzle on the Create tab, and a puzzle
# partly played by hand. Run it after ./run or ./test has built the program.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
program="$top/build/src/ui/tessaly"
[ -x "$program" ] || { echo "Build the program first (./test or ./run)." >&2; exit 1; }
command -v xvfb-run > /dev/null || { echo "xvfb-run is missing: apt-get install xvfb xauth" >&2; exit 1; }
mkdir -p "$top/docs"
for tab in autosolve create manual; do
  xvfb-run -a -s "-screen 0 1600x1200x24" "$program" --screenshot "$tab" "$top/docs/$tab.png"
  echo "docs/$tab.png"
done
