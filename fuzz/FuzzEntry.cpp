// The Edit (grid entry) and blank template texts. Input: byte 0 chooses the
// dialog (even: grid entry, odd: template), the rest is the typed text.
//
// Invariants: an accepted grid is the text's first 81 cells as digits with no
// repeat in a row, column or box, becomes the puzzle's givens and comes back
// the same through the Edit text; a refused one is told once and leaves the
// puzzle alone. An accepted template is 81 cells of "X" and "." that reads
// back the same; a refused one is told once.

#include <string>

#include "FuzzSupport.h"
#include "create/EntryDialogs.h"
#include "model/GridTables.h"
#include "model/Services.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

bool noRepeats(const std::string& digits) {
  for (AreaKind kind : {AreaKind::Row, AreaKind::Col, AreaKind::Box})
    for (int n = 1; n <= 9; ++n) {
      bool seen[10] = {};
      for (int cell : areaCells(kind, n)) {
        const int d = digits[std::size_t(cell - 1)] - '0';
        if (d == 0) continue;
        if (seen[d]) return false;
        seen[d] = true;
      }
    }
  return true;
}

void checkGrid(const std::string& text) {
  // The cells the text stands for: digits, blanks for ' ', '.', '/'; line
  // breaks skipped; anything else refuses the whole text.
  std::string cells;
  bool bad = false;
  for (char ch : text) {
    if (ch == '\r' || ch == '\n') continue;
    if (ch == ' ' || ch == '.' || ch == '/') ch = '0';
    if (ch < '0' || ch > '9') {
      bad = true;
      break;
    }
    cells.push_back(ch);
  }
  const EntryCheck check = checkGridEntry(text);
  if (bad) {
    FUZZ_CHECK(check.refusal == kGridEntryNotDigit);
  } else if (cells.size() < std::size_t(kCells)) {
    FUZZ_CHECK(check.refusal == kGridEntryTooShort);
  } else {
    cells.resize(std::size_t(kCells));
    FUZZ_CHECK(check.ok() == noRepeats(cells));
  }
  FUZZ_CHECK(check.ok() == check.refusal.empty());
  if (check.ok()) FUZZ_CHECK(check.accepted == cells);
  if (!check.ok()) FUZZ_CHECK(check.accepted.empty());

  ScriptedUserInterface ui;
  Session s{Services{&ui}};
  putGivens(s, kEasyPuzzle);
  const GridSnapshot before(s);
  const bool ok = gridEntryOk(s, text);
  FUZZ_CHECK(ok == check.ok());
  if (!ok) {
    FUZZ_CHECK(ui.messages.size() == 1 && ui.messages[0] == check.refusal);
    FUZZ_CHECK(GridSnapshot(s) == before);
    return;
  }
  FUZZ_CHECK(ui.messages.empty());
  FUZZ_CHECK(puzzleTitle(s.collection.origin()) == kNewPuzzleTitle);
  for (int c = 1; c <= kCells; ++c) {
    const int d = cells[std::size_t(c - 1)] - '0';
    FUZZ_CHECK(s.grid[c].value == d && s.grid[c].given == (d != 0));
  }
  const EntryCheck again = checkGridEntry(editGridText(s));
  FUZZ_CHECK(again.ok() && again.accepted == cells);
}

void checkTemplate(const std::string& text) {
  std::string cells;
  bool bad = false;
  for (char ch : text) {
    if (ch == '\r' || ch == '\n') continue;
    if (ch == 'X') {
      cells.push_back('X');
    } else if (ch == ' ' || ch == '.') {
      cells.push_back('.');
    } else {
      bad = true;
      break;
    }
  }
  ScriptedUserInterface ui;
  Session s{Services{&ui}};
  const auto accepted = templateEntryOk(s, text);
  if (bad || cells.size() != std::size_t(kCells)) {
    FUZZ_CHECK(!accepted);
    FUZZ_CHECK(ui.messages.size() == 1);
    FUZZ_CHECK(ui.messages[0] == (bad ? kTemplateBadCharacter : kTemplateWrongLength));
    return;
  }
  FUZZ_CHECK(accepted && *accepted == cells);
  FUZZ_CHECK(ui.messages.empty());
  const EntryCheck again = checkTemplateEntry(*accepted);
  FUZZ_CHECK(again.ok() && again.accepted == cells);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::string text = bytesOf(data + 1, size - 1);
  if (data[0] % 2 == 0)
    checkGrid(text);
  else
    checkTemplate(text);
  return 0;
}
