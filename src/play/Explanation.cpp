#include "play/Explanation.h"

#include "model/Session.h"
#include "play/ManualPlay.h"

namespace tessaly {

std::string numberListInWords(std::string_view digits) {
  if (digits.empty()) return " none ";
  if (digits.size() == 1) return " number " + std::string(digits);
  std::string words = " numbers ";
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0) words += i + 1 == digits.size() ? " and " : ", ";
    words.push_back(digits[i]);
  }
  return words;
}

namespace {
// The list's own blanks are dropped where a sentence puts it between words, so
// that no sentence carries two blanks in a row or one at its end.
std::string inSentence(std::string_view digits) { return trimmed(numberListInWords(digits)); }

// The digits held by the area's cells, the cell itself left out.
CandidateSet areaDigits(const Session& s, AreaKind kind, int n, int cell) {
  CandidateSet digits;
  for (int c : areaCells(kind, n))
    if (c != cell) digits.add(s.grid[c].value);
  return digits;
}
}  // namespace

CandidateExplanation explainCandidates(const Session& s, int cell) {
  CandidateExplanation e;
  if (cell < 1 || cell > kCells) return e;
  e.cell = cell;
  e.row = CellRow[cell];
  e.col = CellCol[cell];
  e.box = CellBox[cell];
  const Cell& c = s.grid[cell];
  if (c.given) {
    e.lines.push_back("Cell number" + num(cell) + " has a given value of " + std::string(1, char('0' + c.value)));
    return e;
  }
  const CandidateSet inRow = areaDigits(s, AreaKind::Row, e.row, cell);
  const CandidateSet inCol = areaDigits(s, AreaKind::Col, e.col, cell);
  const CandidateSet inBox = areaDigits(s, AreaKind::Box, e.box, cell);
  CandidateSet left = CandidateSet::full();
  left.removeAll(inRow);
  left.removeAll(inCol);
  left.removeAll(inBox);
  const std::string leftText = left.text();

  e.lines.push_back("The process below explains how the choice of " + inSentence(leftText) +
                    " for this cell was calculated");
  e.lines.push_back("Examine the row, column and box highlighted, numbers already given cannot be used in the cell");
  e.lines.push_back("Row" + num(e.row) + " given: " + inSentence(inRow.text()));
  e.lines.push_back("Col" + num(e.col) + " given: " + inSentence(inCol.text()));
  e.lines.push_back("Box" + num(e.box) + " given: " + inSentence(inBox.text()));
  e.lines.push_back("Therefore from a range of 1 to 9, the choice of numbers left is " +
                    std::string(left.size() == 1 ? "only " : "") + inSentence(leftText));
  return e;
}

void showCandidateExplanation(Session& s, int cell, ManualPlay* manual) {
  const CandidateExplanation e = explainCandidates(s, cell);
  if (e.lines.empty()) return;
  std::string text;
  for (const std::string& line : e.lines) {
    if (!text.empty()) text.push_back('\n');
    text += line;
  }
  if (manual) {
    manual->highlightBox(e.box);
    manual->repaint();
  }
  s.message(text);
  if (manual) manual->unhighlightBox(e.box);
}

}  // namespace tessaly
