#include "create/EntryDialogs.h"

#include <cctype>

#include "create/PuzzleCheck.h"
#include "model/CollectionFile.h"
#include "model/GridTables.h"
#include "model/Session.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {

bool isLineBreak(char ch) { return ch == '\r' || ch == '\n'; }

/// The first area of the 81 digits that holds a digit twice, as its message:
/// rows first, then columns, then boxes.
std::string firstDuplicateArea(std::string_view digits) {
  struct Kind {
    AreaKind kind;
    const char* word;
  };
  for (Kind k : {Kind{AreaKind::Row, "row"}, Kind{AreaKind::Col, "col"}, Kind{AreaKind::Box, "box"}})
    for (int n = 1; n <= 9; ++n) {
      std::string values;
      for (int cell : areaCells(k.kind, n)) values.push_back(digits[std::size_t(cell - 1)]);
      // Zeros are empty cells and never count as a repeat.
      if (hasRepeatedDigit(values)) return sentence(k.word, Num{n}, " has duplicate numbers");
    }
  return {};
}

}  // namespace

// --- grid entry dialog

EntryCheck checkGridEntry(std::string_view text) {
  EntryCheck check;
  std::string digits;
  for (char ch : text) {
    if (isLineBreak(ch)) continue;
    if (ch == ' ' || ch == '.' || ch == '/') ch = '0';
    if (ch < '0' || ch > '9') {
      // The first refused character ends the check: one message box is enough
      // to send the user back to the text.
      check.refusal = kGridEntryNotDigit;
      return check;
    }
    digits.push_back(ch);
  }
  if (digits.size() < std::size_t(kCells)) {
    check.refusal = kGridEntryTooShort;
    return check;
  }
  digits.resize(std::size_t(kCells));
  check.refusal = firstDuplicateArea(digits);
  if (check.ok()) check.accepted = std::move(digits);
  return check;
}

bool gridEntryOk(Session& session, std::string_view text) {
  EntryCheck check = checkGridEntry(text);
  if (!check.ok()) {
    session.message(check.refusal);
    return false;
  }
  enterPuzzle(session, check.accepted);
  return true;
}

void gridEntryHelp(Session& session) { session.message(kGridEntryHelp); }

// --- Paste puzzle

std::string pasteRefusal(std::string_view text, std::string& digits) {
  digits.clear();
  const PuzzleTextParse parsed = parsePuzzleText(text);
  if (!parsed.ok()) {
    if (text.find_first_not_of(" \t\r\n\f") == std::string_view::npos) return kClipboardEmpty;
    return kClipboardNotPuzzle + parsed.error;
  }
  std::string cells = parsed.puzzle;
  for (char& ch : cells)
    if (ch == '.') ch = '0';
  std::string repeat = firstDuplicateArea(cells);
  if (!repeat.empty()) {
    repeat.front() = char(std::toupper(static_cast<unsigned char>(repeat.front())));
    return kClipboardNotPuzzle + repeat + ".";
  }
  digits = std::move(cells);
  return {};
}

bool pastePuzzle(Session& session, std::string_view text) {
  std::string digits;
  if (const std::string refusal = pasteRefusal(text, digits); !refusal.empty()) {
    session.message(refusal);
    return false;
  }
  if (!confirmPuzzle(session, digits)) return false;
  enterPuzzle(session, digits);
  // The log told of the puzzle the paste replaced: it starts again with this
  // one's blank count, as after a read.
  session.clearEventLog();
  session.run.dropPlacements();
  session.run.mode = RunState::NoPause;  // these lines never wait
  SolverEngine engine(session);
  engine.report({.kind = FindingKind::BlankCount, .count = kCells - session.givenCount()});
  engine.writeLine(kStyleNormal, "");
  engine.writeLine(kStyleNormal, "Click Start to commence");
  session.run.mode = RunState::Waiting;
  return true;
}

std::string editGridText(const Session& session) {
  std::string text;
  for (int r = 1; r <= 9; ++r) {
    if (r > 1) text.push_back('\n');
    for (int c = 1; c <= 9; ++c) {
      const int v = session.grid[CellNumber[r][c]].value;
      text.push_back(v ? char('0' + v) : '.');
    }
  }
  return text;
}

// --- blank template dialog

std::string defaultTemplateText() {
  std::string text;
  for (int r = 1; r <= 9; ++r) {
    if (r > 1) text.push_back('\n');
    text.append(9, kGivenMark);
  }
  return text;
}

EntryCheck checkTemplateEntry(std::string_view text) {
  EntryCheck check;
  std::string cells;
  for (char ch : text) {
    if (isLineBreak(ch)) continue;
    if (ch == kGivenMark) {
      cells.push_back(kGivenMark);
    } else if (ch == ' ' || ch == '.') {
      cells.push_back('.');
    } else {
      check.refusal = kTemplateBadCharacter;
      return check;
    }
  }
  if (cells.size() != std::size_t(kCells)) {
    check.refusal = kTemplateWrongLength;
    return check;
  }
  check.accepted = std::move(cells);
  return check;
}

std::optional<std::string> templateEntryOk(Session& session, std::string_view text) {
  EntryCheck check = checkTemplateEntry(text);
  if (!check.ok()) {
    session.message(check.refusal);
    return std::nullopt;
  }
  return check.accepted;
}

void templateHelp(Session& session) { session.message(kTemplateHelp); }

}  // namespace tessaly
