#!/usr/bin/env python3
"""Checks the further techniques on puzzle sets.

Usage:
  scripts/technique-check.py --cli build/src/cli/tessaly-cli [--narrate N] FILE...

Each FILE holds one puzzle per line (81 characters, anything but 1-9 blank).
For every file the report gives how many puzzles `tessaly-cli grade
--techniques all` solves without a guess, the puzzles per second of that
grading on one core, and how often each technique was the hardest one.
With --narrate N, the first N puzzles of every file are also solved with the
narrated run (`tessaly-cli solve --run solve --techniques all`) and every
told removal must keep, and every told value must be, the solution's digit
(the solution comes from the grader); values are checked only in runs that
made no guess; the report tells how many of those runs needed no guess.
Exits 1 when any check fails. Python standard library only.
"""

import argparse
import collections
import os
import re
import subprocess
import sys
import tempfile
import time

REMOVE = re.compile(r"^Remove (?:row |col |box )?(?:duplicate )?(\d+) from choice \d+ in (?:row +\d+, col +\d+, )?cell *(\d+)$")
SET = re.compile(r"^Set row +\d+, col +\d+, cell *(\d+) to value *(\d+)")


def read_puzzles(path):
    with open(path, encoding="utf-8") as handle:
        return [line.strip()[:81] for line in handle if len(line.strip()) >= 81]


def grade(cli, path):
    start = time.perf_counter()
    run = subprocess.run([cli, "grade", path, "--techniques", "all", "--jobs", "1"],
                         capture_output=True, text=True, check=False)
    seconds = time.perf_counter() - start
    rows = [line.split("\t") for line in run.stdout.splitlines()]
    return rows, seconds


def solve(cli, name, *extra):
    run = subprocess.run([cli, "solve", name, "1", "--run", "solve", "--max-tries", "100000", *extra],
                         capture_output=True, text=True, check=False)
    lines = run.stdout.splitlines()
    grid = lines[-1].split(":", 1)[1].strip() if lines and lines[-1].startswith("grid:") else ""
    return lines, grid


def narrated_faults(cli, puzzle):
    """The told removals and values that contradict the solution (which the
    six rules' own Solve, with its guesses, finds)."""
    with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as handle:
        handle.write(puzzle + "\n")
        name = handle.name
    try:
        _, solution = solve(cli, name)
        lines, _ = solve(cli, name, "--techniques", "all")
    finally:
        os.unlink(name)
    if len(solution) != 81:
        return [], False
    guessed = any("multiple choice" in line for line in lines)
    faults = []
    for line in lines:
        removal = REMOVE.match(line)
        if removal and solution[int(removal.group(2)) - 1] == removal.group(1):
            faults.append(line)
        placed = SET.match(line)
        if placed and not guessed and solution[int(placed.group(1)) - 1] != placed.group(2):
            faults.append(line)
    return faults, guessed


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--narrate", type=int, default=0)
    parser.add_argument("files", nargs="+")
    args = parser.parse_args()
    failed = False
    for path in args.files:
        rows, seconds = grade(args.cli, path)
        graded = [r for r in rows if len(r) == 6 and r[2] != "-"]
        logical = sum(1 for r in graded if r[5] == "0")
        hardest = collections.Counter(r[4] for r in graded)
        print(f"{os.path.basename(path)}: {logical} of {len(rows)} without a guess "
              f"({100.0 * logical / max(1, len(rows)):.2f}%), {len(rows) / seconds:.0f} puzzles/s graded")
        for name, count in hardest.most_common(8):
            print(f"    {count:6d}  {name}")
        if args.narrate:
            checked = guesses = 0
            for puzzle in read_puzzles(path)[: args.narrate]:
                faults, guessed = narrated_faults(args.cli, "".join(c if c in "123456789" else "." for c in puzzle))
                checked += 1
                guesses += guessed
                if faults:
                    failed = True
                    print(f"    WRONG in {puzzle}: {faults[0]}")
            print(f"    narrated Solve: {checked} checked, {checked - guesses} without a guess")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
