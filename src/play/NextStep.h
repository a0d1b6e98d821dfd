#pragma once
// The "Next step" hint: the easiest step of the techniques turned on (the six
// rules first) on the board as it stands, told as the log tells it: the
// finding's line, then one line per placement or removal.

#include <optional>
#include <string>
#include <vector>

#include "model/HintLine.h"
#include "model/TechniqueStep.h"

namespace tessaly {

class Session;

struct NextStepHint {
  std::optional<TechniqueStep> step;  ///< cells 0..80; nothing when no technique finds a step
  /// The finding (a heading), then its values (placements: a click selects
  /// the cell) and removals.
  std::vector<HintLine> lines;
};

/// Looks at the session's values and candidates; changes nothing.
NextStepHint nextStepHint(const Session& session);

/// The cells (1..81, ascending, each once) a step's pattern stands on: its
/// cells, fins, groups, chain nodes and forcing assumptions, and the cells it
/// changes. What the board highlights for the hint.
std::vector<int> patternCells(const TechniqueStep& step);

inline constexpr const char* kNoNextStep = "No technique turned on finds a step here: the next step is a guess";

}  // namespace tessaly
