#include "play/Coach.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "model/PuzzleGrid.h"
#include "play/NextStep.h"
#include "solver/Narrator.h"
#include "solver/SolutionCounter.h"

namespace tessaly {

using namespace bitgrid;

namespace {

/// The coach's names, in the order of `Technique`.
constexpr std::array<const char*, kTechniqueCount> kCoachNames{
    "naked single", "hidden single", "pointing", "claiming", "naked pair", "naked subset",
    "hidden pair", "naked triple", "hidden triple", "naked quad", "hidden quad",
    "X-Wing", "Swordfish", "Jellyfish", "finned X-Wing", "sashimi X-Wing", "finned Swordfish", "sashimi Swordfish",
    "Skyscraper", "Two-String Kite", "Empty Rectangle",
    "XY-Wing", "XYZ-Wing", "W-Wing",
    "Unique Rectangle type 1", "Unique Rectangle type 2", "Unique Rectangle type 4", "BUG+1",
    "colour trap", "colour wrap",
    "X-Chain", "XY-Chain", "alternating inference chain",
    "ALS-XZ",
    "cell forcing chain", "unit forcing chain",
};

/// "row 3", "column 5", "box 9" for area 0..26.
std::string areaName(int area) {
  if (area < 9) return "row " + std::to_string(area + 1);
  if (area < 18) return "column " + std::to_string(area - 8);
  return "box " + std::to_string(area - 17);
}

/// "a", "a and b", "a, b and c".
std::string listed(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) text += i + 1 == items.size() ? " and " : ", ";
    text += items[i];
  }
  return text;
}

std::string cellText(int cell0) { return "cell " + std::to_string(cell0 + 1); }
std::string digitText(int digit) { return std::to_string(digit); }

/// The cell's areas in the order a person names them: box, row, column.
std::array<int, 3> areasOf(int cell0) { return {boxArea(cell0), rowArea(cell0), colArea(cell0)}; }

/// The area of the cell in which the digit has no other place, or -1.
int hiddenSingleArea(const TechniqueBoard& board, int cell0, int digit) {
  if (board.value[std::size_t(cell0)] || !(board.cand[std::size_t(cell0)] & bitOf(digit))) return -1;
  for (int area : areasOf(cell0)) {
    bool alone = true;
    for (std::uint8_t c : kAreas[std::size_t(area)])
      if (c != cell0 && (board.cand[c] & bitOf(digit))) alone = false;
    if (alone) return area;
  }
  return -1;
}

bool nakedSingle(const TechniqueBoard& board, int cell0, int digit) {
  return !board.value[std::size_t(cell0)] && board.cand[std::size_t(cell0)] == bitOf(digit);
}

/// The cases both verdicts begin with: no single solution, a wrong move.
bool judgedBeforeLogic(Verdict& v, const SolutionInfo& solution, const JudgeOptions& options, bool wrong,
                       const std::string& wrongText) {
  if (!solution.unique()) {
    v.kind = VerdictKind::Unjudged;
    v.text = kCannotJudge;
    return true;
  }
  if (wrong) {
    v.kind = options.tellWrong ? VerdictKind::Wrong : VerdictKind::Silent;
    if (options.tellWrong) v.text = wrongText;
    return true;
  }
  return false;
}

void forced(Verdict& v, Technique technique, std::string text, std::optional<TechniqueStep> step = std::nullopt) {
  v.kind = VerdictKind::Forced;
  v.technique = technique;
  v.step = std::move(step);
  v.text = std::move(text);
}

/// The cells of a step's pattern, without the cells it only changes.
std::vector<int> shapeCells(const TechniqueStep& step) {
  std::vector<int> cells(step.cells.begin(), step.cells.end());
  cells.insert(cells.end(), step.fins.begin(), step.fins.end());
  for (const CellGroup& g : step.groups) cells.insert(cells.end(), g.cells.begin(), g.cells.end());
  for (const ChainNode& n : step.chain) cells.insert(cells.end(), n.cells.begin(), n.cells.end());
  for (const Branch& b : step.branches) cells.push_back(b.cell);
  std::sort(cells.begin(), cells.end());
  cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
  return cells;
}

}  // namespace

Position positionOf(const PuzzleGrid& grid) {
  Position p;
  for (int c = 1; c <= kCells; ++c) p.value[std::size_t(c)] = grid[c].value;
  return p;
}

SolutionInfo solutionOf(const PuzzleGrid& grid) {
  std::string givens(kCells, '.');
  for (int c = 1; c <= kCells; ++c)
    if (grid[c].given && grid[c].value) givens[std::size_t(c - 1)] = char('0' + grid[c].value);
  SolutionInfo info;
  info.count = countSolutions(givens, 2, &info.digits);
  if (info.count != 1) info.digits.clear();
  return info;
}

TechniqueBoard playerBoard(const Position& position, bool uniqueSolution) {
  TechniqueBoard board;
  board.uniqueSolution = uniqueSolution;
  for (int c = 0; c < kCellCount; ++c) board.value[std::size_t(c)] = std::uint8_t(position.value[std::size_t(c + 1)]);
  for (int c = 0; c < kCellCount; ++c) {
    if (board.value[std::size_t(c)]) continue;
    std::uint16_t allowed = kAll;
    for (std::uint8_t peer : kPeers[std::size_t(c)])
      if (int v = board.value[peer]) allowed &= std::uint16_t(~bitOf(v));
    const std::uint16_t notes = position.notes[std::size_t(c + 1)];
    board.cand[std::size_t(c)] = notes ? std::uint16_t(notes & allowed) : allowed;
  }
  return board;
}

// Visits the instances of a technique the coach may name (true from `visit`
// stops): every instance of a rule; of a further technique the first on the
// board, then, for one that looks at each digit or each area on its own, the
// first on each digit or in each area, so that an X-Wing on another digit or a
// pair in another row counts too; for one that looks at the whole board, the
// first that bears on a `wanted` candidate, then the first that bears on one
// of those left, and so on.
static bool forEachInstance(const TechniqueInfo& t, const TechniqueBoard& board, const std::array<CellSet, 9>& wanted,
                            const std::function<bool(const TechniqueStep&)>& visit) {
  if (int(t.id) < kRuleCount) {
    // A rule is easy to see anywhere on the board: every instance counts.
    bool stopped = false;
    forEachRuleInstance(t.id, board, [&](const TechniqueStep& step) { return stopped = visit(step); });
    return stopped;
  }
  TechniqueContext context(board);
  const std::optional<TechniqueStep> first = t.find(context);
  if (!first) return false;
  if (visit(*first)) return true;
  const auto sameAsFirst = [&](const TechniqueStep& step) {
    return step.eliminations == first->eliminations && step.placements == first->placements;
  };
  switch (techniqueScope(t.id)) {
    case TechniqueScope::EachDigit:
      for (int d = 0; d < 9; ++d) {
        context.lookAtDigits(std::uint16_t(1u << d));
        const std::optional<TechniqueStep> step = t.find(context);
        if (step && !sameAsFirst(*step) && visit(*step)) return true;
      }
      return false;
    case TechniqueScope::EachArea:
      for (int area = 0; area < 27; ++area) {
        context.lookAtAreas(1u << area);
        const std::optional<TechniqueStep> step = t.find(context);
        if (step && !sameAsFirst(*step) && visit(*step)) return true;
      }
      return false;
    case TechniqueScope::Board: {
      std::array<CellSet, 9> left = wanted;
      for (;;) {
        context.singleOut(left);
        const std::optional<TechniqueStep> step = t.find(context);
        if (!step || !TechniqueContext::touches(*step, left)) return false;
        if (!sameAsFirst(*step) && visit(*step)) return true;
        // What this instance bears on is judged: the next must bear on something else.
        for (const Candidate& e : step->eliminations) {
          CellSet& cells = left[std::size_t(e.digit - 1)];
          cells = cells - CellSet::of(e.cell);
        }
        for (const Candidate& p : step->placements) {
          CellSet& cells = left[std::size_t(p.digit - 1)];
          cells = cells - kPeerSets[std::size_t(p.cell)];
          for (CellSet& other : left) other = other - CellSet::of(p.cell);
        }
      }
    }
  }
  return false;
}

std::string coachName(Technique technique) { return kCoachNames[std::size_t(technique)]; }

std::string coachLabel(const TechniqueStep& step) {
  std::string label = coachName(step.technique);
  const TechniqueFamily family = techniqueInfo(step.technique).family;
  const bool oneDigit = family == TechniqueFamily::Fish || family == TechniqueFamily::SingleDigit ||
                        family == TechniqueFamily::Colouring || step.technique == Technique::XChain ||
                        step.technique == Technique::Rule2 || step.technique == Technique::Rule4;
  if (oneDigit && single(step.digits)) label += " on " + digitText(std::countr_zero(step.digits) + 1);
  return label;
}

Verdict judgePlacement(const Position& before, int cell, int digit, const SolutionInfo& solution,
                       const JudgeOptions& options) {
  Verdict v;
  v.placement = true;
  v.cell = cell;
  v.digit = digit;
  if (judgedBeforeLogic(v, solution, options, solution.unique() && solution.at(cell) != digit,
                        "This " + digitText(digit) + " is not in the solution"))
    return v;

  const int c0 = cell - 1;
  const TechniqueBoard board = playerBoard(before, true);
  const std::string where = digitText(digit) + " can only go in " + cellText(c0) + " in ";
  const std::string only = digitText(digit) + " is the only digit left for " + cellText(c0);
  // What an instance must remove to leave a single: the cell's other digits,
  // or the digit's other places in one of the cell's areas.
  std::array<CellSet, 9> wanted{};
  for (int d = 1; d <= 9; ++d)
    wanted[std::size_t(d - 1)] = d == digit ? kPeerSets[std::size_t(c0)] : CellSet::of(c0);
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find || !options.techniques.has(t.id)) continue;
    if (t.id == Technique::Rule1) {
      if (nakedSingle(board, c0, digit)) {
        forced(v, t.id, "Right: naked single, " + only);
        return v;
      }
      continue;
    }
    if (t.id == Technique::Rule5) {
      if (const int area = hiddenSingleArea(board, c0, digit); area >= 0) {
        forced(v, t.id, "Right: hidden single, " + where + areaName(area));
        return v;
      }
      continue;
    }
    // One instance of the technique, then a single at the cell.
    const auto forcesIt = [&](const TechniqueStep& step) {
      TechniqueBoard after = board;
      applyStep(after, step);
      const std::string label = "Right: " + coachLabel(step);
      if (after.value[std::size_t(c0)] == digit)
        forced(v, step.technique, label + ", it places " + digitText(digit) + " in " + cellText(c0), step);
      else if (nakedSingle(after, c0, digit))
        forced(v, step.technique, label + ", then " + only, step);
      else if (const int area = hiddenSingleArea(after, c0, digit); area >= 0)
        forced(v, step.technique, label + ", then " + where + areaName(area), step);
      else
        return false;
      return true;
    };
    if (forEachInstance(t, board, wanted, forcesIt)) return v;
  }
  v.kind = VerdictKind::Lucky;
  v.text = kLuckyPlacement;
  return v;
}

Verdict judgeNoteRemoval(const Position& before, int cell, int digit, const SolutionInfo& solution,
                         const JudgeOptions& options) {
  Verdict v;
  v.placement = false;
  v.cell = cell;
  v.digit = digit;
  if (judgedBeforeLogic(v, solution, options, solution.unique() && solution.at(cell) == digit,
                        "Careful: " + digitText(digit) + " is this cell's solution"))
    return v;

  const int c0 = cell - 1;
  for (int area : areasOf(c0))
    for (std::uint8_t c : kAreas[std::size_t(area)])
      if (before.value[std::size_t(c + 1)] == digit) {
        v.kind = VerdictKind::Forced;
        v.text = "Right: " + digitText(digit) + " is already in " + areaName(area);
        return v;
      }

  const TechniqueBoard board = playerBoard(before, true);
  const std::string removes = ", which removes it";
  std::array<CellSet, 9> wanted{};
  wanted[std::size_t(digit - 1)] = CellSet::of(c0);
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find || !options.techniques.has(t.id)) continue;
    if (t.id == Technique::Rule1) {
      // The cell itself must hold another digit, or a cell it sees must hold this one.
      const std::uint16_t own = board.cand[std::size_t(c0)];
      if (single(own) && own != bitOf(digit)) {
        forced(v, t.id, "Right: naked single, " + cellText(c0) + " must be " +
                            digitText(std::countr_zero(own) + 1) + removes);
        return v;
      }
      for (std::uint8_t p : kPeers[std::size_t(c0)])
        if (nakedSingle(board, p, digit)) {
          forced(v, t.id, "Right: naked single, " + cellText(p) + " must be " + digitText(digit) + removes);
          return v;
        }
      continue;
    }
    if (t.id == Technique::Rule5) {
      for (int e = 1; e <= 9; ++e)
        if (e != digit)
          if (const int area = hiddenSingleArea(board, c0, e); area >= 0) {
            forced(v, t.id, "Right: hidden single, " + digitText(e) + " can only go in " + cellText(c0) + " in " +
                                areaName(area) + removes);
            return v;
          }
      for (std::uint8_t p : kPeers[std::size_t(c0)])
        if (const int area = hiddenSingleArea(board, p, digit); area >= 0) {
          forced(v, t.id, "Right: hidden single, " + digitText(digit) + " can only go in " + cellText(p) + " in " +
                              areaName(area) + removes);
          return v;
        }
      continue;
    }
    const auto removesIt = [&](const TechniqueStep& step) {
      TechniqueBoard after = board;
      applyStep(after, step);
      if (after.value[std::size_t(c0)] || (after.cand[std::size_t(c0)] & bitOf(digit))) return false;
      forced(v, step.technique, "Right: " + coachLabel(step) + " removes it", step);
      return true;
    };
    if (forEachInstance(t, board, wanted, removesIt)) return v;
  }
  v.kind = VerdictKind::Lucky;
  v.text = kLuckyRemoval;
  return v;
}

Nudge nudgeAt(const TechniqueBoard& board, TechniqueSet techniques, int level) {
  std::optional<TechniqueStep> step = findEasiestStep(board, techniques, true);
  if (!step) {
    Nudge none;
    none.text = kNoNudge;
    none.lines = {kNoNudge};
    return none;
  }
  return tellStep(*step, level);
}

Nudge tellStep(const TechniqueStep& step, int level) {
  Nudge n;
  n.level = std::clamp(level, 1, kNudgeLevels);
  n.step = step;
  n.lines.push_back("Technique to try: " + coachName(step.technique));

  const std::vector<int> shape = shapeCells(step);
  if (n.level >= 2) {
    std::vector<int> areas = step.units;
    areas.insert(areas.end(), step.coverUnits.begin(), step.coverUnits.end());
    if (areas.empty()) {
      // No areas named: the boxes the pattern (or, failing that, its changes) stands in.
      std::vector<int> cells = shape.empty() ? std::vector<int>{} : shape;
      for (const Candidate& p : step.placements) cells.push_back(p.cell);
      if (shape.empty())
        for (const Candidate& e : step.eliminations) cells.push_back(e.cell);
      for (int c : cells) areas.push_back(boxArea(c));
      std::sort(areas.begin(), areas.end());
    }
    areas.erase(std::unique(areas.begin(), areas.end()), areas.end());
    std::vector<std::string> names;
    std::vector<bool> in(kCellCount, false);
    for (int a : areas) {
      names.push_back(areaName(a));
      for (std::uint8_t c : kAreas[std::size_t(a)]) in[c] = true;
    }
    for (int c = 0; c < kCellCount; ++c)
      if (in[std::size_t(c)]) n.area.push_back(c + 1);
    n.lines.push_back("Look at " + listed(names));
  }
  if (n.level >= 3) {
    const std::vector<int> cells = shape.empty() ? patternCells(step) : [&] {
      std::vector<int> out;
      for (int c : shape) out.push_back(c + 1);
      return out;
    }();
    std::vector<std::string> names;
    for (int c : cells) names.push_back(std::to_string(c));
    n.pattern = cells;
    n.lines.push_back((cells.size() == 1 ? "Look at cell " : "Look at cells ") + listed(names));
  }
  if (n.level >= 4) {
    for (const Candidate& e : step.eliminations) n.removals.push_back({e.cell + 1, e.digit});
    for (const Candidate& p : step.placements) n.placements.push_back({p.cell + 1, p.digit});
    n.lines.push_back(narrateStep(step));
  }
  n.text = n.lines.back();
  return n;
}

NotesCheck checkNotes(const Position& position, const SolutionInfo& solution) {
  NotesCheck check;
  if (!solution.unique()) {
    check.text = "The notes cannot be checked: this puzzle does not have exactly one solution";
    return check;
  }
  check.judged = true;
  for (int c = 1; c <= kCells; ++c) {
    const std::uint16_t notes = position.notes[std::size_t(c)];
    if (!position.value[std::size_t(c)] && notes && !(notes & bitOf(solution.at(c)))) check.cells.push_back(c);
  }
  const std::size_t n = check.cells.size();
  check.text = n == 0   ? "Every cell's notes hold its solution digit"
               : n == 1 ? "1 cell has lost its solution digit from its notes"
                        : std::to_string(n) + " cells have lost their solution digit from their notes";
  return check;
}

}  // namespace tessaly
