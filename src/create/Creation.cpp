#include "create/Creation.h"

#include <algorithm>
#include <utility>

#include "create/EntryDialogs.h"
#include "model/FileUtil.h"
#include "model/Session.h"
#include "solver/Grader.h"
#include "solver/Techniques.h"
#include "solver/SolutionCounter.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
constexpr const char* kTempHeader = "#001";
constexpr const char* kLineEnd = "\r\n";
}  // namespace

std::optional<int> typedBlanks(std::string_view text) {
  const std::optional<long long> n = leadingNumber(text);
  if (!n) return std::nullopt;
  return int(std::clamp(*n, -1LL, 1000LL));
}

CreateResult PuzzleCreator::createCommand(const CreateSettings& settings) {
  CreateResult result;
  result.settings = settings;
  if (settings.blanks && *settings.blanks > kMaxBlanks) {
    s.message(kTooManyBlanks);
    return result;
  }
  // No number at all asks for too few blanks, as an empty box does.
  if (!settings.blanks || *settings.blanks < kMinBlanks) {
    s.message(kTooFewBlanks);
    return result;
  }

  // What a creation that made nothing tells, once the creation is over: the
  // window shows the views again only then, so they stand while the message is open.
  std::string told;
  {
    const ActivityScope creating(s.run.activity, RunActivity::Creating);
    told = createWithin(settings, result);
  }
  if (!told.empty()) s.message(told);
  return result;
}

std::string PuzzleCreator::createWithin(const CreateSettings& settings, CreateResult& result) {
  const BoardBefore before = keepBoard();
  s.ui().setBusy(true);
  try {
    const bool graded = settings.targetGrade.has_value() || settings.targetTechnique.has_value();
    const int tries = graded ? std::max(1, settings.gradeTries) : 1;
    // A Manual template that cannot be used is told once: the tries after it
    // blank at random, as the fallback chose.
    CreateSettings current = settings;
    for (result.tries = 1;; ++result.tries) {
      result.settings = current;
      if (!fillGrid()) {
        result.outcome = CreateResult::Outcome::Failed;
        restoreBoard(before);
        s.ui().setBusy(false);
        return kCreationFailed;
      }
      const std::string solution = settings.uniqueOnly ? gridText() : std::string();
      // The count passed createCommand's check; a later try takes it as the
      // try before rewrote it.
      result.blanks = applyBlankDistribution(result.settings, *result.settings.blanks);
      if (settings.uniqueOnly) result.blanks = keepOneSolution(solution, result.settings.distribution);
      current = result.settings;
      if (!graded) break;
      const PuzzleGrade grade = gradePuzzle(gridText(), s.controls.techniques);
      result.grade = grade.grade;
      if ((!settings.targetGrade || result.grade == *settings.targetGrade) &&
          (!settings.targetTechnique || (grade.graded() && grade.guesses == 0 &&
                                         grade.hardestTechnique == *settings.targetTechnique)))
        break;
      if (result.tries >= tries) {
        result.outcome = CreateResult::Outcome::GradeNotReached;
        restoreBoard(before);
        s.ui().setBusy(false);
        return settings.targetTechnique ? techniqueNotReachedText(*settings.targetTechnique, tries)
                                        : gradeNotReachedText(*settings.targetGrade, tries);
      }
    }
    makeKeptCellsGivens();
    s.run.stats.reset();

    // Every record is numbered #001 and appended as it stands: PuzTemp.sud is a
    // scratch log of what was created, not a collection to navigate.
    if (!s.folders.userData.empty()) makeFolder(s.folders.userData);
    const std::string path = tempCollectionPath(s);
    if (heldTempRecords)
      *heldTempRecords += tempRecord();
    else if (const FileResult written = appendToFile(path, tempRecord()); !written)
      s.message(couldNotWriteText(path, written));

    s.collection.setOrigin(BoardOrigin::created(result.blanks));
    s.collection.boardFromFile = false;
    // What the status line told was about the puzzle this one replaces.
    s.run.ended = {};
    s.puzzleLoaded.notify();
    finishView();
    s.ui().setBusy(false);
    result.outcome = CreateResult::Outcome::Created;
  } catch (const RunStopped&) {
    // Another command, or the window closing, ended the creation: the board
    // comes back as it was and nothing is saved.
    result.outcome = CreateResult::Outcome::Failed;
    restoreBoard(before);
    s.ui().setBusy(false);
  }
  return {};
}

PuzzleCreator::BoardBefore PuzzleCreator::keepBoard() const {
  return BoardBefore{s.grid, s.BoxMissingCount, s.BlanksLeft, s.collection.boardFromFile, s.run};
}

void PuzzleCreator::restoreBoard(const BoardBefore& before) {
  s.grid = before.grid;
  s.BoxMissingCount = before.boxMissing;
  s.BlanksLeft = before.blanksLeft;
  s.collection.boardFromFile = before.boardFromFile;
  // The run's records come back too (a later Next or replay reads them); the
  // command under way and the creation flag stay as they are now.
  const RunActivity activity = s.run.activity;
  const bool creationFlag = s.run.CreationFlag;
  s.run = before.run;
  s.run.activity = activity;
  s.run.CreationFlag = creationFlag;
  for (int c = 1; c <= kCells; ++c) s.display().paintCell(c, s.grid[c].given ? CellPaint::Given : CellPaint::Normal);
  s.display().setProgress(0);
  s.display().showViews(true);
}

bool PuzzleCreator::fillGrid() {
  // A seeding the search cannot complete is seeded afresh.
  for (int attempt = 1; attempt <= kFillAttempts; ++attempt)
    if (completeGrid()) return true;
  return false;
}

std::string gradeNotReachedText(int grade, int tries) {
  return "No puzzle of grade " + std::to_string(grade) + " (" + std::string(gradeName(grade)) + ") was made in " +
         std::to_string(tries) + (tries == 1 ? " try" : " tries") + "; try other blanks or more tries";
}

std::string techniqueNotReachedText(Technique technique, int tries) {
  return "No puzzle that needs " + std::string(techniqueInfo(technique).name) + " was made in " +
         std::to_string(tries) + (tries == 1 ? " try" : " tries") + "; try other blanks or more tries";
}

std::string tempCollectionPath(const Session& session) {
  return session.folders.userDataFolder(session.appDir) + kTempCollectionName;
}

bool PuzzleCreator::completeGrid() {
  // Step 2: an empty grid in ordinary colours.
  s.grid.clear();
  s.collection.boardFromFile = false;
  for (int c = 1; c <= kCells; ++c) s.display().paintCell(c, CellPaint::Normal);
  s.display().setProgress(0);

  // Step 3: a fresh silent run. CreationFlag stays raised from now on, so the
  // solver's guesses always take the smallest candidate.
  s.run.begin();
  s.run.stats.reset();
  s.display().showViews(false);
  s.run.CreationFlag = true;
  s.run.mode = RunState::Silent;
  s.processEvents();

  seedGrid();
  SolverEngine engine(s);
  engine.solveAll();

  // A silent run is not held to the attempt limit of narrated solving: it ends
  // with the grid complete, or with blanks when the search ran out of guesses.
  return s.grid.filledCount() == kCells && engine.givensAreValid();
}

void PuzzleCreator::seedGrid() {
  // Box d receives only the digit d, so no two seeds can meet in a row, column
  // or box.
  for (int d = 1; d <= 9; ++d) {
    const int r = randomDigit();
    const int cell = areaCells(AreaKind::Box, d)[std::size_t(r - 1)];
    s.grid[cell].value = d;
    s.grid[cell].given = true;
    s.grid[cell].candidates = CandidateSet::of(d);
  }
}

int PuzzleCreator::applyBlankDistribution(CreateSettings& settings, int wanted) {
  if (settings.distribution == BlankDistribution::Manual && !blankByTemplate(settings.manualTemplate))
    settings.distribution = BlankDistribution::Random;
  switch (settings.distribution) {
    case BlankDistribution::Mirror: blankMirror(settings, wanted); break;
    case BlankDistribution::ByBox: blankByBox(settings, wanted); break;
    case BlankDistribution::Random: blankRandom(wanted); break;
    case BlankDistribution::Manual: break;  // done above
  }
  return blankCount();
}

bool PuzzleCreator::blankByTemplate(const std::optional<std::string>& manualTemplate) {
  EntryCheck check = manualTemplate ? checkTemplateEntry(*manualTemplate) : EntryCheck{{}, "not given"};
  if (!check.ok()) {
    s.message(kTemplateNotAccepted);
    return false;
  }
  const auto blanks = std::count(check.accepted.begin(), check.accepted.end(), '.');
  if (blanks == kCells) {
    s.message(kTemplateAllBlanks);
    return false;
  }
  if (blanks == 0) {
    s.message(kTemplateNoBlanks);
    return false;
  }
  for (int c = 1; c <= kCells; ++c)
    if (check.accepted[std::size_t(c - 1)] != kGivenMark) blankCell(c);
  return true;
}

void PuzzleCreator::blankMirror(CreateSettings& settings, int wanted) {
  const int target = 2 * (wanted / 2);
  settings.blanks = target;
  settings.blanksRewritten = true;
  // Cells are blanked in pairs point-symmetric through the centre. A pair that
  // is already blank adds nothing and the centre cell is its own partner, so
  // the count may end one above the target.
  do {
    const int row = randomDigit();
    const int col = randomDigit();
    blankCell(CellNumber[std::size_t(row)][std::size_t(col)]);
    blankCell(CellNumber[std::size_t(10 - row)][std::size_t(10 - col)]);
  } while (blankCount() < target);
}

void PuzzleCreator::blankByBox(CreateSettings& settings, int wanted) {
  const int perBox = wanted / 9;
  settings.blanks = 9 * perBox;
  settings.blanksRewritten = true;
  for (int box = 1; box <= 9; ++box) {
    shuffleBoxPositionOrder();
    const AreaCells& cells = areaCells(AreaKind::Box, box);
    for (int k = 1; k <= perBox; ++k) blankCell(cells[std::size_t(s.blankingOrders.boxPositions[std::size_t(k)] - 1)]);
  }
}

void PuzzleCreator::blankRandom(int wanted) {
  shuffleCellOrder();
  for (int k = 1; k <= wanted; ++k) blankCell(s.blankingOrders.cells[std::size_t(k)]);
}

void PuzzleCreator::shuffleCellOrder() {
  for (int i = kCells; i >= 1; --i) {
    const int j = drawOneTo(s.random(), i);
    std::swap(s.blankingOrders.cells[std::size_t(i)], s.blankingOrders.cells[std::size_t(j)]);
  }
}

void PuzzleCreator::shuffleBoxPositionOrder() {
  for (int i = 9; i >= 1; --i) {
    const int j = drawOneTo(s.random(), i);
    std::swap(s.blankingOrders.boxPositions[std::size_t(i)], s.blankingOrders.boxPositions[std::size_t(j)]);
  }
}

int PuzzleCreator::randomDigit() { return drawOneTo(s.random(), 9); }

std::string PuzzleCreator::tempRecord() const {
  std::string record = kTempHeader;
  record += kLineEnd;
  for (int r = 1; r <= 9; ++r) {
    for (int c = 1; c <= 9; ++c) {
      const int v = s.grid[CellNumber[std::size_t(r)][std::size_t(c)]].value;
      record.push_back(v ? char('0' + v) : '.');
    }
    record += kLineEnd;
  }
  return record;
}

std::string PuzzleCreator::gridText() const {
  std::string text;
  for (int c = 1; c <= kCells; ++c) text.push_back(s.grid[c].value ? char('0' + s.grid[c].value) : '.');
  return text;
}

int PuzzleCreator::keepOneSolution(const std::string& solution, BlankDistribution distribution) {
  std::string puzzle = gridText();
  if (countSolutions(puzzle, 2) == 1) return blankCount();
  // Blank again, unit by unit from the full grid, keeping only the blanks that
  // leave one solution.
  const std::string blanked = puzzle;
  puzzle = solution;
  for (std::size_t i = 0; i < blanked.size(); ++i) {
    if (blanked[i] != '.' || puzzle[i] == '.') continue;
    const std::size_t partner = distribution == BlankDistribution::Mirror ? blanked.size() - 1 - i : i;
    puzzle[i] = '.';
    puzzle[partner] = '.';
    // The puzzle had one solution before these blanks: any other must differ here.
    const bool another = partner == i ? hasOtherSolution(puzzle, solution, {int(i)})
                                      : hasOtherSolution(puzzle, solution, {int(i), int(partner)});
    if (another) {
      puzzle[i] = solution[i];
      puzzle[partner] = solution[partner];
    }
  }
  for (int c = 1; c <= kCells; ++c) {
    if (puzzle[std::size_t(c - 1)] == '.') continue;
    Cell& cell = s.grid[c];
    cell.value = puzzle[std::size_t(c - 1)] - '0';
  }
  return blankCount();
}

void PuzzleCreator::blankCell(int cell) {
  Cell& c = s.grid[cell];
  c.value = 0;
  c.given = false;
  c.candidates = CandidateSet();
}

int PuzzleCreator::blankCount() const { return kCells - s.grid.filledCount(); }

void PuzzleCreator::makeKeptCellsGivens() {
  // The solver fills the grid without marking what it placed, and only the
  // seeds carry the given mark. A created puzzle must behave like one read from
  // a file: every kept cell is a given, so that saving writes it, a solve run
  // treats it as fixed and the exports show it. Givens show their own digit as
  // their candidate; the blank cells get their plain candidates.
  for (int c = 1; c <= kCells; ++c) {
    Cell& cell = s.grid[c];
    cell.given = cell.value != 0;
    cell.candidates = cell.given ? CandidateSet::of(cell.value) : CandidateSet();
  }
  SolverEngine(s).computeCandidates(false);
}

void PuzzleCreator::finishView() {
  for (int c = 1; c <= kCells; ++c) s.display().paintCell(c, s.grid[c].given ? CellPaint::Given : CellPaint::Normal);
  // The silent run filled the bar; the new puzzle has nothing solved yet.
  s.display().setProgress(0);
  s.display().showViews(true);
}

}  // namespace tessaly
