#pragma once
// The explanation shown on a click on a candidate label: how the cell's choices
// follow from the numbers already in its row, column and box.

#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

class Session;
class ManualPlay;

/// A digit text in words: " none " when empty, " number 4" for one digit,
/// " numbers 2, 4 and 9" for more (", " between, " and " before the last).
std::string numberListInWords(std::string_view digits);

/// The explanation of one cell, with the areas it refers to.
struct CandidateExplanation {
  int cell = 0;
  int row = 0, col = 0, box = 0;
  std::vector<std::string> lines;
};

/// Explains cell 1..81. A given gets one line naming its value. Any other cell
/// gets the digits its row, column and box hold (the cell's own value left out)
/// and the digits of 1 to 9 that they leave.
CandidateExplanation explainCandidates(const Session& session, int cell);

/// Shows the explanation as one message, one line each, with the cell's box
/// highlighted through `manual` while the message is open.
void showCandidateExplanation(Session& session, int cell, ManualPlay* manual = nullptr);

}  // namespace tessaly
