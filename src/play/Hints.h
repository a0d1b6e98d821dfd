#pragma once
// Hints: what one rule (or all six) would deduce from the grid as it stands,
// read from the findings the rules record, with the board put back afterwards;
// the cell with the fewest choices; and the pointer read-outs.

#include <array>
#include <string>

#include "model/CandidateSet.h"

namespace tessaly {

class Session;
class ManualPlay;

/// Every cell's value, candidates and given mark (index = cell number 1..81).
struct BoardSnapshot {
  std::array<int, 82> value{};
  std::array<CandidateSet, 82> candidates{};
  std::array<bool, 82> given{};
  friend bool operator==(const BoardSnapshot&, const BoardSnapshot&) = default;
};

BoardSnapshot saveBoardSnapshot(const Session& session);
void restoreBoardSnapshot(Session& session, const BoardSnapshot& snapshot);

/// The GetHint button index that runs Rules 1 to 6 in that order.
inline constexpr int kAllRulesHint = 6;

/// GetHint button `index`: 0..5 runs Rule index+1, kAllRulesHint runs Rules 1..6.
/// Fills session.hints with the report; the board (values, candidates, given
/// marks) is as before afterwards, the rules' narration stays in the log. The
/// summaries are refreshed through `manual` when there is one.
void runRuleHint(Session& session, int index, ManualPlay* manual = nullptr);

/// A click on line `index` of the hint report: a placement selects its cell
/// and, with the right button, places its digit. Other lines do nothing.
void hintLineClicked(Session& session, ManualPlay& manual, int index, bool rightButton);

/// The CellHint button: selects the open cell with the fewest choices (the lowest
/// number among equals) and tells its choices, or "Sorry no hints". Returns the
/// cell, 0 when there was none.
int cellHint(Session& session, ManualPlay* manual = nullptr);

/// The read-out for the pointer over a candidate label: "Cell 7, Choices=249".
std::string candidateReadout(const Session& session, int cell);
/// The read-out for a click on a box frame: "This is box number 4".
std::string boxReadout(int box);

}  // namespace tessaly
