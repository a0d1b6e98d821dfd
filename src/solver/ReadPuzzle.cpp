#include "solver/ReadPuzzle.h"

#include <utility>

#include "model/CollectionFile.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
struct BusyPointer {
  explicit BusyPointer(Session& s) : s(s) { s.ui().setBusy(true); }
  ~BusyPointer() { s.ui().setBusy(false); }
  Session& s;
};

// Makes the 81 cells the puzzle's givens: digits 1..9 are givens, anything
// else (or a cell past the end) an empty cell. A given shows its own digit as
// its candidate. Then paints every cell. The number of empty cells.
int placeGivens(Session& s, std::string_view cells) {
  int blanks = 0;
  for (int c = 1; c <= kCells; ++c) {
    Cell& cell = s.grid[c];
    const int v = std::size_t(c - 1) < cells.size() ? digitValue(cells[std::size_t(c - 1)]) : 0;
    cell.value = v;
    cell.given = v != 0;
    cell.candidates = v ? CandidateSet::of(v) : CandidateSet();
    if (!v) ++blanks;
  }
  for (int c = 1; c <= kCells; ++c) s.display().paintCell(c, s.grid[c].given ? CellPaint::Given : CellPaint::Normal);
  return blanks;
}
// Skipped lines are told once for each file, not again at every read of
// another of its puzzles; a change to the file tells them anew.
bool firstTimeTold(Session& s, const std::string& path, const CollectionScan& scan) {
  const std::pair<int, int> now{scan.badLines, scan.firstBadLine};
  auto [it, inserted] = s.collection.toldSkippedLines.emplace(path, now);
  if (inserted) return true;
  if (it->second == now) return false;
  it->second = now;
  return true;
}
}  // namespace

ReadResult readPuzzle(Session& s, const std::string& path, int n) {
  // The read's lines never wait, whatever an earlier run left behind.
  s.run.mode = RunState::NoPause;
  SolverEngine engine(s);
  try {
    BusyPointer busy(s);
    // The file is looked through once; Previous, Next and the number box go
    // straight to their puzzle until the file changes.
    std::optional<CollectionIndex>& index = s.collection.index;
    if (!index || index->path() != path || !index->current()) index = indexCollection(path);
    const CollectionScan& scan = index->scan;
    const int total = scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
    s.collection.TotalPuzzles = total;
    if (scan.refused()) {
      s.message(collectionProblemText(scan, path));
      return {};
    }
    if (scan.badLines > 0 && firstTimeTold(s, path, scan)) s.message(collectionProblemText(scan, path));
    if (total == 0) {
      s.message(path + " does not appear to have any puzzles");
      return {};
    }
    if (n == -1) n = total;
    PuzzleRowsRead read = readPuzzleRows(*index, n);
    if (read.status == PuzzleRowsRead::Status::NotFound || read.status == PuzzleRowsRead::Status::Unreadable) {
      s.message("Puzzle number" + num(n) + " not found in file: " + path);
      return {};
    }
    if (read.status == PuzzleRowsRead::Status::Incomplete) {
      s.message("Puzzle number" + num(n) + " is incomplete in file: " + path);
      return {};
    }
    s.collection.CurrentPuzzleNumber = n;
    s.collection.boardFromFile = true;

    const int blanks = placeGivens(s, read.cells());
    s.collection.boardAsRead = s.grid.valueCode();
    s.collection.setOrigin(BoardOrigin::read(n, total, blanks));
    s.puzzleLoaded.notify();
    s.run.ended = {};
    s.clearEventLog();
    s.run.dropPlacements();

    if (!engine.givensAreValid()) {
      s.message("This Puzzle does not appear to be valid, please check fixed values for duplicates");
      return {};
    }
    engine.computeCandidates(false);
    // Reading only analyses: plain candidates, no rules, nothing placed.
    engine.analyseGrid(SolverEngine::AnalysisMode::CandidatesOnly);
    if (!engine.givensAreValid()) {
      s.message("This Puzzle appears to have a problem, please check fixed values for duplicates");
      return {};
    }
    bool unsolvable = false;
    for (int c = 1; c <= kCells; ++c)
      if (!s.grid[c].value && s.grid[c].candidates.empty()) {
        s.message("This Puzzle appears unsolvable!! Please check fixed values");
        unsolvable = true;
        break;
      }
    s.display().setProgress(0);
    engine.writeLine(kStyleNormal, "Puzzle has been read and analysed");
    engine.writeLine(kStyleNormal, "Possible candidate numbers for each cell are shown in 'Choices for cells'");
    engine.writeLine(kStyleNormal, "");
    engine.report({.kind = FindingKind::BlankCount, .count = kCells - s.givenCount()});
    engine.writeLine(kStyleNormal, "");
    if (unsolvable)
      engine.writeLine(kStyleWarning, "This puzzle does not appear to have a solution!");
    else
      engine.writeLine(kStyleNormal, "Click Start to commence");
    s.run.mode = RunState::Waiting;
    return {.analysed = true, .ready = !unsolvable};
  } catch (const EventLogFull& full) {
    s.message(full.what());
  } catch (const RunStopped&) {
  }
  return {};
}

std::optional<ReadResult> openCollection(Session& s, const std::string& path) {
  CollectionIndex index = indexCollection(path);
  const CollectionScan& scan = index.scan;
  if (scan.refused()) {
    s.message(collectionProblemText(scan, path));
    return std::nullopt;
  }
  if (scan.problem != CollectionScan::Problem::None || scan.puzzles == 0) {
    if (scan.badLines > 0) s.message(collectionProblemText(scan, path));
    s.message(path + " does not appear to have any puzzles");
    return std::nullopt;
  }
  s.collection.CurrentFile = path;
  s.collection.index = std::move(index);
  return readPuzzle(s, path, 1);
}

void enterPuzzle(Session& s, std::string_view cells) {
  placeGivens(s, cells);
  SolverEngine(s).computeCandidates(false);
  s.collection.setOrigin(BoardOrigin::entered());
  s.collection.boardFromFile = false;
  s.run.ended = {};
  s.puzzleLoaded.notify();
}

ReadResult clearCommand(Session& s) {
  const int n = s.collection.CurrentPuzzleNumber;
  if (s.collection.CurrentFile.empty() || n <= 0) return {};
  if (!s.collection.boardFromFile &&
      !s.ui().question("The puzzle on the board is not in a collection and will be lost. Clear it and read puzzle " +
                       std::to_string(n) + " again?"))
    return {};
  return readPuzzle(s, s.collection.CurrentFile, n);
}

}  // namespace tessaly
