#!/usr/bin/env python3
"""Compares tessaly-cli's grades with ratings made elsewhere.

Usage:
  scripts/grade-check.py --cli build/src/cli/tessaly-cli \
      [--kaggle RATED.tsv] [--exchange RATINGS.tsv] [--techniques all]

--kaggle takes a tab-separated file with a header line and the columns
`puzzle`, `difficulty` and `level` (Beginner, Easy, Medium, Hard, Expert);
--exchange one with the columns `puzzle` and `rating`. Every puzzle is graded
by `tessaly-cli grade -`; the report gives Spearman's rank correlation between
our grade and their level or rating, and our mean grade per level.
--techniques grades with the further techniques too (six, all or a list of
names, as tessaly-cli takes them).
Python standard library only.
"""

import argparse
import csv
import subprocess
import sys

LEVELS = ["Beginner", "Easy", "Medium", "Hard", "Expert"]


def read_table(path):
    with open(path, newline="", encoding="utf-8") as handle:
        return list(csv.DictReader(handle, delimiter="\t"))


TECHNIQUES = []


def grades(cli, puzzles):
    """Our grade of every puzzle (None for a puzzle without one)."""
    text = "".join(p + "\n" for p in puzzles)
    run = subprocess.run([cli, "grade", "-", *TECHNIQUES], input=text, capture_output=True, text=True, check=False)
    if run.returncode != 0:
        sys.exit("tessaly-cli grade failed:\n" + run.stderr)
    found = {}
    for line in run.stdout.splitlines():
        puzzle, _solutions, grade = line.split("\t")[:3]
        found[puzzle] = None if grade == "-" else int(grade)
    return [found.get(p.replace("0", ".")) for p in puzzles]


def ranks(values):
    """Ranks from 1, ties sharing their mean rank."""
    order = sorted(range(len(values)), key=lambda k: values[k])
    result = [0.0] * len(values)
    i = 0
    while i < len(order):
        j = i
        while j + 1 < len(order) and values[order[j + 1]] == values[order[i]]:
            j += 1
        for k in range(i, j + 1):
            result[order[k]] = (i + j) / 2 + 1
        i = j + 1
    return result


def spearman(xs, ys):
    rx, ry = ranks(xs), ranks(ys)
    n = len(xs)
    mx, my = sum(rx) / n, sum(ry) / n
    cov = sum((a - mx) * (b - my) for a, b in zip(rx, ry))
    vx = sum((a - mx) ** 2 for a in rx)
    vy = sum((b - my) ** 2 for b in ry)
    return cov / (vx * vy) ** 0.5 if vx and vy else float("nan")


def histogram(values):
    return " ".join(f"{g}:{values.count(g)}" for g in range(1, 6))


def check_kaggle(cli, path):
    rows = read_table(path)
    ours = grades(cli, [r["puzzle"] for r in rows])
    pairs = [(r, g) for r, g in zip(rows, ours) if g is not None]
    level = [LEVELS.index(r["level"]) for r, _ in pairs]
    rating = [float(r["difficulty"]) for r, _ in pairs]
    graded = [g for _, g in pairs]
    print(f"Kaggle: {len(rows)} puzzles, {len(pairs)} graded")
    print(f"  Spearman rho, grade vs level:      {spearman(graded, level):.3f}")
    print(f"  Spearman rho, grade vs difficulty: {spearman(graded, rating):.3f}")
    print("  level      mean grade  grades")
    for k, name in enumerate(LEVELS):
        mine = [g for lv, g in zip(level, graded) if lv == k]
        if mine:
            print(f"  {name:<10} {sum(mine) / len(mine):10.2f}  {histogram(mine)}")


def check_exchange(cli, path):
    rows = read_table(path)
    ours = grades(cli, [r["puzzle"] for r in rows])
    pairs = [(float(r["rating"]), g) for r, g in zip(rows, ours) if g is not None]
    rating = [r for r, _ in pairs]
    graded = [g for _, g in pairs]
    print(f"Exchange: {len(rows)} puzzles, {len(pairs)} graded")
    print(f"  Spearman rho, grade vs rating: {spearman(graded, rating):.3f}")
    print(f"  grades: {histogram(graded)}")
    print("  rating band  mean grade")
    for low in range(5, 10):
        mine = [g for r, g in pairs if low <= r < low + 1]
        if mine:
            print(f"  {low}.0-{low}.9     {sum(mine) / len(mine):10.2f}  ({len(mine)} puzzles)")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--cli", required=True, help="the tessaly-cli program")
    parser.add_argument("--kaggle", help="rated puzzles: puzzle, difficulty and level columns")
    parser.add_argument("--exchange", help="rated puzzles: puzzle and rating columns")
    parser.add_argument("--techniques", help="grade with these techniques (six, all or names)")
    args = parser.parse_args()
    if args.techniques:
        TECHNIQUES.extend(["--techniques", args.techniques])
    if not args.kaggle and not args.exchange:
        parser.error("give --kaggle, --exchange or both")
    if args.kaggle:
        check_kaggle(args.cli, args.kaggle)
    if args.exchange:
        check_exchange(args.cli, args.exchange)


if __name__ == "__main__":
    main()
