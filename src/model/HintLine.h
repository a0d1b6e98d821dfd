#pragma once
// The lines of a hint report, as records: the window's hint list and the
// command line's hint report show their texts, a click reads the cell and digit.

#include <string>
#include <vector>

namespace tessaly {

enum class HintKind {
  Heading,    ///< what the report is about: the rule applied, the singles found, ...
  Placement,  ///< a single value the rule found: `cell` takes `digit`
  Narration,  ///< a line of the run's narration, as the log shows it
  Verdict,    ///< the coach's verdict on the player's move: its `cell` and `digit`
};

struct HintLine {
  HintKind kind = HintKind::Heading;
  int cell = 0;   ///< 1..81 for a placement or a verdict, 0 otherwise
  int digit = 0;  ///< 1..9 for a placement or a verdict, 0 otherwise
  std::string text;
  friend bool operator==(const HintLine&, const HintLine&) = default;
};

/// The texts of the lines, in order.
inline std::vector<std::string> hintTexts(const std::vector<HintLine>& lines) {
  std::vector<std::string> texts;
  texts.reserve(lines.size());
  for (const HintLine& line : lines) texts.push_back(line.text);
  return texts;
}

}  // namespace tessaly
