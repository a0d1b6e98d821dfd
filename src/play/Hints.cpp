#include "play/Hints.h"

#include <algorithm>
#include <span>
#include <vector>

#include "model/Session.h"
#include "play/ManualPlay.h"
#include "solver/Narrator.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {

constexpr const char* kRule1Shown = "NOW REMOVE DUPLICATES AS A RESULT OF ANY SINGLES GENERATED ABOVE";

HintLine heading(std::string text) { return HintLine{HintKind::Heading, 0, 0, std::move(text)}; }

HintLine narration(std::string text) { return HintLine{HintKind::Narration, 0, 0, std::move(text)}; }

HintLine placement(int cell, int digit) {
  return HintLine{HintKind::Placement, cell, digit,
                  "Row=" + num(CellRow[cell]) + ", Col=" + num(CellCol[cell]) + ", Cell=" + num(cell) +
                      ", Value=" + num(digit)};
}

void runRules(SolverEngine& engine, int index) {
  if (index < kAllRulesHint) {
    (engine.*kRules[std::size_t(index)].apply)();
    return;
  }
  // All six, always in their number order: the configured rule order plays no part.
  for (const RuleInfo& rule : kRules) (engine.*rule.apply)();
}

bool isRule1Start(const Finding& f) { return f.kind == FindingKind::RuleStart && f.rule == 1; }

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
  s.hints.clear();
  const BoardSnapshot snapshot = saveBoardSnapshot(s);
  const RunState savedRunMode = s.run.mode;

  // A single run as a solve step starts it, on the candidates as they stand.
  s.run.dropPlacements();
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

  s.hints.push_back(heading(index == kAllRulesHint ? std::string() : "APPLY RULE" + num(kRules[std::size_t(index)].number)));

  // Only what this run found counts: older findings are never read.
  const std::vector<Finding>& all = s.run.findings;
  const auto own = std::ranges::lower_bound(all, firstLine, {}, &Finding::logLine);
  const std::span<const Finding> found(own, all.end());
  const auto singlesFound =
      std::ranges::find_if(found, [](const Finding& f) { return f.kind == FindingKind::SinglesFound; });
  const int singles = singlesFound == found.end() ? 0 : singlesFound->count;
  if (singles <= 0) {
    s.hints.push_back(heading("This rule did not generate any single values"));
    finishHint(s, snapshot, manual);
    return;
  }
  s.hints.push_back(heading("This rule generated" + num(singles) + " single values:"));
  if (std::ranges::any_of(found, announcesSolved)) s.hints.push_back(heading("THE PUZZLE IS SOLVED"));

  // The placements are the first "Set row" findings after the first singles
  // finding; Rule 5's own come before it and are reductions, not placements.
  int placements = 0;
  for (auto f = std::next(singlesFound); f != found.end() && placements < singles; ++f) {
    if (!setsCellValue(f->kind)) continue;
    s.hints.push_back(placement(f->cell, f->digit));
    ++placements;
  }

  // The run's whole narration, Rule 1's start shown as the task it stands for.
  s.hints.push_back(heading("These single values were deduced based on the following logic:"));
  auto f = found.begin();
  for (int n = firstLine; n <= lastLine; ++n) {
    while (f != found.end() && f->logLine < n) ++f;
    if (f != found.end() && f->logLine == n && isRule1Start(*f))
      s.hints.push_back(narration(kRule1Shown));
    else
      s.hints.push_back(narration(std::string(s.log.text(n))));
  }
  finishHint(s, snapshot, manual);
}

void hintLineClicked(Session& s, ManualPlay& manual, int index, bool rightButton) {
  if (!manual.active() || index < 0 || index >= int(s.hints.size())) return;
  const HintLine& line = s.hints[std::size_t(index)];
  if (line.kind != HintKind::Placement || line.cell < 1 || line.cell > kCells) return;
  manual.selectCell(line.cell);
  if (rightButton) manual.placeManualValue(line.cell, line.digit);
}

int cellHint(Session& s, ManualPlay* manual) {
  // Fewest choices first, then the lowest cell number.
  int cell = 0;
  for (int c = 1; c <= kCells; ++c) {
    const Cell& open = s.grid[c];
    // Open cells only: a given's label shows its own digit, a filled cell none.
    if (open.value || open.candidates.empty()) continue;
    if (!cell || open.candidates.size() < s.grid[cell].candidates.size()) cell = c;
  }
  if (!cell) {
    s.message("Sorry no hints");
    return 0;
  }
  const std::string choices = s.grid[cell].candidates.text();
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
