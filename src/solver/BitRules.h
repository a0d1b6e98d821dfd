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

/// What Rule `rule` (2 to 6) removes from the grid in one pass: per cell, the
/// digits it takes (Rule 5 takes all but the hidden digit, or every digit when
/// a cell would need two). A cell with one candidate counts as placed.
Cands ruleRemovals(int rule, const Cands& cand);

/// Takes `removed` from the grid; whether anything went.
bool applyRemovals(Cands& cand, const Cands& removed);

}  // namespace tessaly::bitgrid
