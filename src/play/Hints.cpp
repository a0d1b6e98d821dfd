#include "play/Hints.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "model/Session.h"
#include "play/ManualPlay.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {

constexpr std::string_view kPlaceLine = "Place additional ";
constexpr std::string_view kSetRowLine = "Set row";
constexpr std::string_view kRule1Line = "Apply Rule 1";
constexpr const char* kRule1Shown = "NOW REMOVE DUPLICATES AS A RESULT OF ANY SINGLES GENERATED ABOVE";

/// The text split at every blank; neighbouring blanks give empty words.
std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  std::vector<std::string_view> words;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) {
      words.push_back(text.substr(start));
      return words;
    }
    words.push_back(text.substr(start, end - start));
    start = end + 1;
  }
}

long long wordNumber(const std::vector<std::string_view>& words, std::size_t index) {
  return index < words.size() ? numericValue(words[index]) : 0;
}

void runRules(SolverEngine& engine, int index) {
  switch (index) {
    case 0: engine.applyRule1(); break;
    case 1: engine.applyRule2(); break;
    case 2: engine.applyRule3(); break;
    case 3: engine.applyRule4(); break;
    case 4: engine.applyRule5(); break;
    case 5: engine.applyRule6(); break;
    default:
      // All six, always in this order: the configured rule order plays no part.
      engine.applyRule1();
      engine.applyRule2();
      engine.applyRule3();
      engine.applyRule4();
      engine.applyRule5();
      engine.applyRule6();
      break;
  }
}

int countBlanks(const Session& s) { return kCells - s.grid.filledCount(); }

/// Puts the board back and brings the summaries up to date with it. The
/// summaries are recomputed from the restored values; the candidates are then
/// restored once more, so that they are exactly what they were before the hint.
void finishHint(Session& s, const BoardSnapshot& snapshot, ManualPlay* manual) {
  restoreBoardSnapshot(s, snapshot);
  if (manual) {
    manual->refreshCandidateSummaries();
    restoreBoardSnapshot(s, snapshot);
  }
  s.BlanksLeft = countBlanks(s);
}

}  // namespace

BoardSnapshot saveBoardSnapshot(const Session& s) {
  BoardSnapshot snapshot;
  for (int c = 1; c <= kCells; ++c) {
    snapshot.value[std::size_t(c)] = s.grid[c].value;
    snapshot.candidates[std::size_t(c)] = s.grid[c].candidates;
    snapshot.given[std::size_t(c)] = s.grid[c].given;
  }
  return snapshot;
}

void restoreBoardSnapshot(Session& s, const BoardSnapshot& snapshot) {
  for (int c = 1; c <= kCells; ++c) {
    s.grid[c].value = snapshot.value[std::size_t(c)];
    s.grid[c].candidates = snapshot.candidates[std::size_t(c)];
    s.grid[c].given = snapshot.given[std::size_t(c)];
  }
}

void runRuleHint(Session& s, int index, ManualPlay* manual) {
  if (index < 0 || index > kAllRulesHint) return;
  s.Hints.clear();
  const BoardSnapshot snapshot = saveBoardSnapshot(s);
  const RunState savedRunMode = s.run.mode;

  // A single run as a solve step starts it, on the candidates as they stand.
  s.run.guessStack.clear();
  s.run.candidateQueue.clear();
  s.run.RuleReductions = 0;
  s.BlanksLeft = countBlanks(s);
  const int firstLine = s.log.TotalLines() + 1;

  // The hint never pauses and never highlights, whatever the run was doing.
  s.run.mode = RunState::NoPause;
  SolverEngine engine(s);
  try {
    runRules(engine, index);
  } catch (const EventLogFull& full) {
    s.run.mode = savedRunMode;
    finishHint(s, snapshot, manual);
    s.message(full.what());
    return;
  } catch (const RunStopped&) {
    // The window is closing: put the board back and say nothing.
    s.run.mode = savedRunMode;
    finishHint(s, snapshot, manual);
    return;
  }
  s.run.mode = savedRunMode;
  s.log.RecordedLineCount = s.log.TotalLines();
  const int lastLine = s.log.TotalLines();

  s.Hints.push_back(index == kAllRulesHint ? std::string() : "APPLY RULE" + num(index + 1));

  // Only what this run wrote counts: older lines are never searched.
  const int placeLine = s.log.searchForward(kPlaceLine, firstLine);
  const long long singles = placeLine ? wordNumber(splitAt(s.log.text(placeLine), ' '), 2) : 0;
  if (singles <= 0) {
    s.Hints.push_back("This rule did not generate any single values");
    finishHint(s, snapshot, manual);
    return;
  }
  s.Hints.push_back("This rule generated" + num(singles) + " single values:");
  for (int n = firstLine; n <= lastLine; ++n)
    if (s.log.text(n).find("solved") != std::string_view::npos) {
      s.Hints.push_back("THE PUZZLE IS SOLVED");
      break;
    }

  // The placements follow the "Place additional" line; Rule 5's own "Set row"
  // findings come before it and are reductions, not placements.
  int from = placeLine + 1;
  for (long long k = 0; k < singles; ++k) {
    const int line = s.log.searchForward(kSetRowLine, from);
    if (!line) break;
    const auto words = splitAt(s.log.text(line), ' ');
    s.Hints.push_back("Row=" + num(wordNumber(words, 2)) + ", Col=" + num(wordNumber(words, 4)) +
                      ", Cell=" + num(wordNumber(words, 6)) + ", Value=" + num(wordNumber(words, 9)));
    from = line + 1;
  }

  s.Hints.push_back("These single values were deduced based on the following logic:");
  for (int n = firstLine; n <= lastLine; ++n) {
    const std::string_view text = s.log.text(n);
    if (text.substr(0, kRule1Line.size()) == kRule1Line)
      s.Hints.push_back(kRule1Shown);
    else
      s.Hints.emplace_back(text);
  }
  finishHint(s, snapshot, manual);
}

void hintLineClicked(Session& s, ManualPlay& manual, int index, bool rightButton) {
  if (!manual.active() || index < 0 || index >= int(s.Hints.size())) return;
  const std::string& line = s.Hints[std::size_t(index)];
  if (line.rfind("Row=", 0) != 0) return;
  const auto pieces = splitAt(line, '=');
  const int cell = int(wordNumber(pieces, 3));
  const int value = int(wordNumber(pieces, 4));
  if (cell < 1 || cell > kCells) return;
  manual.selectCell(cell);
  if (rightButton) manual.placeManualValue(cell, value);
}

int cellHint(Session& s, ManualPlay* manual) {
  // Entries sort as text: fewest choices first, then the lowest cell number.
  std::vector<std::string> entries;
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    // Open cells only: a given's label shows its own digit, a filled cell none.
    if (cell.value || cell.candidates.empty()) continue;
    entries.push_back(padded(cell.candidates.size(), 2) + padded(c, 2) + cell.candidates.text());
  }
  if (entries.empty()) {
    s.message("Sorry no hints");
    return 0;
  }
  std::sort(entries.begin(), entries.end());
  const std::string& first = entries.front();
  const int cell = int(numericValue(std::string_view(first).substr(2, 2)));
  const std::string choices = first.substr(4);
  if (manual) {
    manual->selectCell(cell);
    manual->repaint();
  }
  s.message("Cell" + num(cell) + " has choices: " + choices);
  return cell;
}

std::string candidateReadout(const Session& s, int cell) {
  if (cell < 1 || cell > kCells) return {};
  return "Cell" + num(cell) + ", Choices=" + s.grid[cell].candidates.text();
}

std::string boxReadout(int box) { return "This is box number" + num(box); }

}  // namespace tessaly
