// The six rules as finders on the technique board: every instance in a fixed
// order, the finder taking the first, for the "Next step" hint; the test of
// the grader's bit forms (BitRules.h) takes them all. The narrated run applies
// the rules through the engine.

#include "solver/Techniques.h"

#include <algorithm>
#include <bit>

namespace tessaly {

using namespace bitgrid;

namespace {

/// The cells of an area that hold digit d.
std::vector<int> placesOf(const TechniqueBoard& board, int area, int d) {
  std::vector<int> cells;
  for (std::uint8_t c : kAreas[std::size_t(area)])
    if (board.cand[c] & bitOf(d)) cells.push_back(c);
  return cells;
}

/// Removes `digits` from the open cells of `area` outside `keep`.
void eliminateInArea(const TechniqueBoard& board, int area, std::uint16_t digits, const std::vector<int>& keep,
                     TechniqueStep& step) {
  for (std::uint8_t c : kAreas[std::size_t(area)]) {
    if (std::find(keep.begin(), keep.end(), int(c)) != keep.end()) continue;
    for (int d = 1; d <= 9; ++d)
      if (board.cand[c] & digits & bitOf(d)) step.eliminations.push_back({c, d});
  }
  std::sort(step.eliminations.begin(), step.eliminations.end());
}

/// Rule 2 (a box's places of a digit on one line) and Rule 4 (a line's places
/// in one box): the places of d in `home` all lie in `other`, which loses d
/// outside `home`.
void lockedCandidates(const TechniqueBoard& board, bool pointing, const RuleVisitor& visit) {
  for (int first = 0; first < 27; ++first) {
    const bool isBox = first >= 18;
    if (pointing != isBox) continue;
    for (int d = 1; d <= 9; ++d) {
      const std::vector<int> cells = placesOf(board, first, d);
      if (cells.size() < 2) continue;
      for (int kind = 0; kind < 2; ++kind) {
        // pointing: the box's cells share a row (kind 0) or column (kind 1);
        // claiming: the line's cells share a box.
        auto areaOf = [&](int c) { return pointing ? (kind == 0 ? rowArea(c) : colArea(c)) : boxArea(c); };
        if (!pointing && kind == 1) break;
        const int other = areaOf(cells.front());
        if (!std::all_of(cells.begin(), cells.end(), [&](int c) { return areaOf(c) == other; })) continue;
        TechniqueStep step;
        step.technique = pointing ? Technique::Rule2 : Technique::Rule4;
        step.units = {first, other};
        step.digits = bitOf(d);
        step.cells = cells;
        eliminateInArea(board, other, bitOf(d), cells, step);
        if (!step.eliminations.empty() && visit(step)) return;
      }
    }
  }
}

/// Rules 3 and 6 as the program applies them: n cells of an area with the
/// same n candidates (n = 2 only for Rule 3, 2..5 for Rule 6, and no other
/// cell of the area with n candidates for Rule 6).
void equalGroups(const TechniqueBoard& board, bool pairsOnly, const RuleVisitor& visit) {
  for (int area = 0; area < 27; ++area) {
    for (int n = 2; n <= (pairsOnly ? 2 : 5); ++n) {
      const auto& cells = kAreas[std::size_t(area)];
      for (int i = 0; i < 9; ++i) {
        const std::uint16_t set = board.cand[cells[std::size_t(i)]];
        if (count(set) != n) continue;
        std::vector<int> group;
        int sized = 0;
        for (std::uint8_t c : cells) {
          if (count(board.cand[c]) == n) ++sized;
          if (board.cand[c] == set) group.push_back(c);
        }
        if (int(group.size()) != n || (!pairsOnly && sized != n)) continue;
        if (group.front() != cells[std::size_t(i)]) continue;  // each group once, from its first cell
        TechniqueStep step;
        step.technique = pairsOnly ? Technique::Rule3 : Technique::Rule6;
        step.units = {area};
        step.digits = set;
        step.cells = group;
        eliminateInArea(board, area, set, group, step);
        if (!step.eliminations.empty() && visit(step)) return;
      }
    }
  }
}

void nakedSingles(const TechniqueBoard& board, const RuleVisitor& visit) {
  for (int c = 0; c < kCellCount; ++c)
    if (!board.value[std::size_t(c)] && single(board.cand[std::size_t(c)])) {
      TechniqueStep step;
      step.technique = Technique::Rule1;
      step.digits = board.cand[std::size_t(c)];
      step.cells = {c};
      step.placements = {{c, std::countr_zero(board.cand[std::size_t(c)]) + 1}};
      if (visit(step)) return;
    }
}

void hiddenSingles(const TechniqueBoard& board, const RuleVisitor& visit) {
  for (int area = 0; area < 27; ++area)
    for (int d = 1; d <= 9; ++d) {
      const std::vector<int> cells = placesOf(board, area, d);
      if (cells.size() != 1) continue;
      TechniqueStep step;
      step.technique = Technique::Rule5;
      step.units = {area};
      step.digits = bitOf(d);
      step.cells = cells;
      step.placements = {{cells.front(), d}};
      if (visit(step)) return;
    }
}

std::optional<TechniqueStep> first(Technique rule, const TechniqueBoard& board) {
  std::optional<TechniqueStep> found;
  forEachRuleInstance(rule, board, [&](const TechniqueStep& step) {
    found = step;
    return true;
  });
  return found;
}

}  // namespace

void forEachRuleInstance(Technique rule, const TechniqueBoard& board, const RuleVisitor& visit) {
  switch (rule) {
    case Technique::Rule1: return nakedSingles(board, visit);
    case Technique::Rule5: return hiddenSingles(board, visit);
    case Technique::Rule2: return lockedCandidates(board, true, visit);
    case Technique::Rule4: return lockedCandidates(board, false, visit);
    case Technique::Rule3: return equalGroups(board, true, visit);
    case Technique::Rule6: return equalGroups(board, false, visit);
    default: return;
  }
}

std::optional<TechniqueStep> findNakedSingle(const TechniqueContext& ctx) { return first(Technique::Rule1, ctx.board); }
std::optional<TechniqueStep> findHiddenSingle(const TechniqueContext& ctx) { return first(Technique::Rule5, ctx.board); }
std::optional<TechniqueStep> findPointing(const TechniqueContext& ctx) { return first(Technique::Rule2, ctx.board); }
std::optional<TechniqueStep> findClaiming(const TechniqueContext& ctx) { return first(Technique::Rule4, ctx.board); }
std::optional<TechniqueStep> findNakedPair(const TechniqueContext& ctx) { return first(Technique::Rule3, ctx.board); }
std::optional<TechniqueStep> findEqualGroup(const TechniqueContext& ctx) { return first(Technique::Rule6, ctx.board); }

}  // namespace tessaly
