// Solve runs and the commands that start and pace them.

#include "model/FileUtil.h"
#include "solver/Narrator.h"
#include "solver/Texts.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
constexpr const char* kNoSolutionStatus = "There appears to be no possible solution to this puzzle.";
constexpr const char* kAttemptLimitAdvice =
    ". To go on, raise Options > Attempt limit... or turn on Options > Further techniques";
constexpr const char* kAttemptLimitAdviceWithTechniques = ". To go on, raise Options > Attempt limit...";
constexpr const char* kProblemMessage =
    "This Puzzle appears to have a problem, please check fixed values for duplicates and solve again";
}  // namespace

bool SolverEngine::hasBlankCell() const { return s.grid.filledCount() < kCells; }

template <class F>
void SolverEngine::guarded(F&& body) {
  try {
    body();
  } catch (const EventLogFull& full) {
    s.ui().setBusy(false);
    s.message(full.what());
  } catch (const RunStopped&) {
    // The user gave another command (or the window is going away): the run
    // ends where it stands, no longer waiting, and the board is theirs again.
    s.run.mode = RunState::Released;
    s.ui().setBusy(false);
  }
  // What the further techniques removed belongs to the run that found it: the
  // choices shown afterwards are computed from the values alone again.
  s.run.excluded.fill(CandidateSet());
}

void SolverEngine::solveAll() {
  prepareFurtherTechniques();
  applyRule1();
  analyseGrid(AnalysisMode::Full);
  if (s.BlanksLeft != 0) {
    for (int c = 1; c <= kCells; ++c)
      s.display().paintCell(c, s.grid[c].given ? CellPaint::Given : CellPaint::Normal);
    do {
      placeNext();
      // The attempt limit is the narrated solve's: a silent run (creation
      // completing its seeded grid) searches until it is done.
      if (s.run.mode != RunState::Silent && s.run.PlacementCount > s.config.MaxTries) {
        const std::string text = "Tried" + num(s.config.MaxTries) + " times, solution aborted";
        s.message(text);
        // The status line stays after the message is gone: it tells the ways on.
        s.statusText = text + (s.controls.techniques.any() ? kAttemptLimitAdviceWithTechniques : kAttemptLimitAdvice);
        s.run.mode = RunState::Released;
        s.run.PlacementCount = 0;
        return;
      }
    } while (!s.run.candidateQueue.empty());
  }
  if (s.run.mode == RunState::Silent) return;  // creation reports nothing
  if (hasBlankCell()) {
    s.statusText = kNoSolutionStatus;
    finalCleanUp();
    return;
  }
  if (!givensAreValid()) {
    if (s.controls.currentTab != Tab::ManualSolve) s.message(kProblemMessage);
    return;
  }
  reportOutcome();
  finalCleanUp();
}

void SolverEngine::reportOutcome() {
  s.run.mode = RunState::Released;
  say(kStyleNormal, false, "");
  if (s.run.PlacementCount <= 1) s.run.PlacementCount = 1;
  const Finding outcome{.kind = FindingKind::Outcome, .count = s.run.SavedGuessCount};
  report(outcome);
  s.statusText = narrate(outcome);
  say(kStyleNormal, false, "");
  say(kStyleNormal, false, " Rules statistics");
  say(kStyleNormal, false, "   Rule    No of Times Applied   Total Reductions");
  for (const RuleInfo& rule : kRules)
    if (rule.ordered)
      report({.kind = FindingKind::StatisticsRow, .rule = rule.number,
              .count = s.run.stats.timesApplied[std::size_t(rule.number)],
              .reductions = s.run.stats.totalReductions[std::size_t(rule.number)]});
  for (int t = 0; t < kTechniqueCount; ++t)
    if (const int found = s.run.stats.techniqueFound[std::size_t(t)])
      report({.kind = FindingKind::TechniqueStatisticsRow, .count = found,
              .reductions = s.run.stats.techniqueReductions[std::size_t(t)], .technique = std::uint8_t(t)});
}

void SolverEngine::finalCleanUp() {
  s.processEvents();
  s.run.mode = RunState::Silent;
  s.display().setProgress(0);
  for (int c = 1; c <= kCells; ++c) {
    s.grid[c].candidates = CandidateSet();
    s.display().paintCell(c, CellPaint::Normal);
  }
}

void SolverEngine::beginRun() { s.run.begin(); }

void SolverEngine::solveCommand() {
  const ActivityScope solving(s.run.activity, RunActivity::Solving);
  guarded([&] {
    s.display().showViews(true);
    s.ui().setBusy(true);
    beginRun();
    s.run.mode = RunState::NoPause;
    s.log.RecordedLineCount = 0;
    // The grid as it stands becomes the puzzle.
    for (int c = 1; c <= kCells; ++c) {
      Cell& cell = s.grid[c];
      cell.given = cell.value != 0;
      if (cell.given) cell.candidates = CandidateSet::of(cell.value);
    }
    solveAll();
    // The recorded line count was set to 0 above and no run raises it, so the
    // file is written empty; only a hint records lines for it.
    const std::string logFile = pathIn(s.folders.output, kEventLogFileName);
    if (const FileResult written = s.log.writeTextFile(logFile); !written) s.message(couldNotWriteText(logFile, written));
    s.message("Done");
    s.ui().setBusy(false);
  });
}

void SolverEngine::startCommand() {
  guarded([&] {
    if (!hasBlankCell()) {
      s.message("There are no blanks in this puzzle");
      return;
    }
    beginRun();
    s.run.stats.reset();
    s.display().showViews(true);
    if (s.controls.solveAtOnce) {
      const ActivityScope solving(s.run.activity, RunActivity::Solving);
      s.ui().setBusy(true);
      s.run.mode = RunState::NoPause;
      solveAll();
      s.ui().setBusy(false);
      return;
    }
    const ActivityScope stepping(s.run.activity, RunActivity::Stepping);
    for (std::string_view paragraph : kApproachText) writeLine(kStyleNormal, paragraph);
    s.run.mode = s.controls.PauseCheck ? RunState::NoPause : RunState::Waiting;
    say(kStyleNormal, false, "Sequence of Rules: 1", s.config.RuleOrder);
    say(kStyleNormal, true, "Ready to start the solution, click Next");
    s.run.stats.reset();
    say(kStyleNormal, false, "Commence solution");
    say(kStyleNormal, false, "Sequence of Rules: 1", s.config.RuleOrder);
    s.run.mode = s.controls.PauseCheck ? RunState::NoPause : RunState::Released;
    solveAll();
  });
}

void SolverEngine::nextCommand(bool secondaryButton) {
  if (s.run.currentCell > 0) s.display().paintCell(s.run.currentCell, CellPaint::Normal);
  if (secondaryButton) {
    s.controls.PauseCheck = true;
    s.run.mode = RunState::NoPause;
    return;
  }
  s.run.mode = RunState::Released;
}

void SolverEngine::setPauseCheck(bool checked) {
  s.controls.PauseCheck = checked;
  // Solve and a creation never pause, whatever the box says: a Solve that
  // waited would have no Next to go on with, and a creation must stay silent.
  if (s.run.activity == RunActivity::Solving || s.run.activity == RunActivity::Creating) return;
  if (checked) {
    s.run.mode = RunState::NoPause;
  } else {
    s.run.mode = RunState::Released;
  }
}

}  // namespace tessaly
