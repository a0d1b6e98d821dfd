#pragma once
// The six rules in bit form, as the grader applies them on the silent search's
// grid (BitGrid.h). Rule 1 places every single and follows what it forces;
// each of Rules 2 to 6 looks at the grid as it stood when the rule began and
// makes all its removals at once, so its findings never depend on the order in
// which the areas are visited: a puzzle turned, mirrored or with its digits
// renamed is solved by the same steps until the first guess.
//
// The same rules exist as finders (TechRules.cpp), one instance at a time, for
// the hints; tests/solver/BitRulesTest.cpp holds the two forms to the same
// eliminations.

#include <array>

#include "solver/BitGrid.h"

namespace tessaly::bitgrid {

/// Rule 1, repeated until it finds nothing more: every single candidate not
/// yet `placed` is placed (its digit leaves the cell's peers, `open` counts
/// down). Placing them one at a time reaches the same grid as placing each
/// round's singles together, since a removal never brings a candidate back.
/// False when a cell is left without a candidate.
bool placeSingles(Cands& cand, std::array<bool, kCellCount>& placed, int& open);
/// The same from the cells already known to be the only new singles (after a
/// guess, or the removals below): no look over the whole grid.
bool placeQueuedSingles(Cands& cand, std::array<bool, kCellCount>& placed, int& open, SingleQueue& queue);

/// Per area (rows, columns, boxes as in kAreas): the digits that are a
/// candidate somewhere, those that are one in two cells or more, and those of
/// its cells with more than one candidate.
struct AreaTally {
  std::array<std::uint16_t, 27> once, twice, open;
  /// Whether every digit has a place in every area.
  bool covered() const {
    for (std::uint16_t set : once)
      if (set != kAll) return false;
    return true;
  }
};
AreaTally tallyAreas(const Cands& cand);

/// What Rule `rule` (2 to 6) removes from the grid in one pass: per cell, the
/// digits it takes (Rule 5 takes all but the hidden digit, or every digit when
/// a cell would need two); only the digits the cell holds count. A cell with
/// one candidate counts as placed. `tally` is the grid's, when the caller has it.
Cands ruleRemovals(int rule, const Cands& cand, const AreaTally& tally);
Cands ruleRemovals(int rule, const Cands& cand);

/// What taking removals from the grid did: nothing, some removals (the cells
/// they left with one candidate queued), or a cell left with none.
enum class RuleOutcome { Nothing, Progress, Contradiction };
/// Takes `removed` from the grid.
RuleOutcome applyRemovals(Cands& cand, const Cands& removed, SingleQueue& newSingles);
/// Takes what Rule `rule` removes from the grid.
RuleOutcome applyRule(int rule, Cands& cand, const AreaTally& tally, SingleQueue& newSingles);

}  // namespace tessaly::bitgrid
