// The solver: each rule on small boards, reading a puzzle and the runs (whole narrations: cases solve-golden-*).

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <fstream>
#include <random>

#include "model/Text.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolutionCounter.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"
#include "solver/Narrator.h"

namespace tessaly {
namespace {

using Strings = std::vector<std::string>;
using Cells = std::vector<std::pair<int, const char*>>;
/// Every cell of an area but the kept ones is given `others` as its candidates.
struct AreaSetup { AreaKind kind; int n; std::vector<int> keep; const char* others; };

struct Board {
  test::TestSession t;
  Session& s = t.session;
  SolverEngine engine{s};
  explicit Board(bool empty = false) {
    for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = empty ? CandidateSet() : CandidateSet::full();
    s.BlanksLeft = 81;
    s.run.mode = RunState::NoPause;
  }
  void set(int cell, const char* candidates) { s.grid[cell].candidates = CandidateSet::fromText(candidates); }
  void set(const AreaSetup& a) {
    for (int c : areaCells(a.kind, a.n))
      if (std::ranges::find(a.keep, c) == a.keep.end()) set(c, a.others);
  }
  std::string text(int cell) { return s.grid[cell].candidates.text(); }
  std::string narration() { return test::joinLines(test::logLines(s)); }
  void apply(int rule) { (engine.*ruleNumbered(rule)->apply)(); }
};

TEST(Rules, EachRuleNarratesItsReductionsThenHandsOverToRule1) {
  // How the narration begins and its length in lines, the rule's reductions, candidates afterwards.
  struct Row { int rule; bool empty; std::vector<AreaSetup> areas; Cells cells; std::string narration;
               int lines, reductions; Cells after; };
  const std::string kFile = "<file>";  // the narration begins with tests/data/rules/ruleN.txt
  std::vector<Row> rows = {
      // Singles are deleted from their areas again and again, then placed.
      {1, true, {}, {{1, "7"}, {2, "78"}, {3, "789"}}, kFile, 8, 0, {{3, "9"}}},
      // In box 1 digit 5 is possible only in cell 12 (row 2, col 3).
      {2, false, {{AreaKind::Box, 1, {12}, "12346789"}}, {}, kFile, 28, 12, {{18, "12346789"}, {12, "123456789"}}},
      {3, true, {}, {{1, "47"}, {11, "47"}, {21, "1479"}}, kFile, 8, 2, {{21, "19"}, {1, "47"}}},
      // Column 2 holds 7 only in cells of box 1; a single (cell 1) is never reduced. Rule 1 then
      // places the 7 of cell 1 and the 1 left in cell 3, deleting that 1 from column 3.
      {4, false, {{AreaKind::Col, 2, {2, 11, 20}, "12345689"}}, {{1, "7"}, {3, "17"}},
       kFile, 50, 5, {{1, "7"}, {3, "1"}, {12, "2345689"}}},
      // Digit 3 only in cell 41 of box 5; digit 8 only in cell 80 of row 9.
      {5, false, {{AreaKind::Box, 5, {41}, "12456789"}, {AreaKind::Row, 9, {80}, "12345679"}}, {},
       kFile, 34, 2, {{41, "3"}}},
      {6, true, {}, {{19, "135"}, {20, "135"}, {22, "135"}, {25, "1358"}}, kFile, 7, 1, {{25, "8"}, {19, "135"}}},
      // Nothing found: digit 5 in two cells of a box, in the same row; its only place
      // already a single; two equal pairs beside a third pair in column 3 and box 1.
      {2, false, {{AreaKind::Box, 1, {11, 12}, "12346789"}}, {}, "", 2, 0, {}},
      {5, true, {{AreaKind::Box, 1, {1}, "12345689"}}, {{1, "7"}}, "", 2, 0, {}},
      {6, true, {}, {{3, "59"}, {12, "59"}, {21, "27"}, {30, "2589"}}, "", 2, 0, {}}};
  for (int rule = 1; rule <= 6; ++rule) rows.push_back({rule, false, {}, {}, "", 2, 0, {}});  // no single anywhere
  for (Row& r : rows) {
    const std::string n = std::to_string(r.rule);
    if (r.narration == kFile) {
      r.narration = test::readFile(test::dataFile("rules/rule" + n + ".txt"));
      ASSERT_FALSE(r.narration.empty()) << "rules/rule" << n << ".txt";
    } else if (r.narration.empty()) {
      r.narration = "01Apply Rule " + n + (r.rule == 1 ? "\n01No additional single values found\n"
                                                       : "\n01End Rule " + n + ": no reductions\n");
    }
    SCOPED_TRACE(r.narration);
    Board b(r.empty);
    for (const AreaSetup& a : r.areas) b.set(a);
    for (auto [cell, candidates] : r.cells) b.set(cell, candidates);
    b.apply(r.rule);
    EXPECT_EQ(b.narration().substr(0, r.narration.size()), r.narration);
    EXPECT_EQ(b.s.log.TotalLines(), r.lines);
    for (auto [cell, candidates] : r.after) EXPECT_EQ(b.text(cell), candidates) << "cell " << cell;
    EXPECT_EQ(b.s.run.stats.timesApplied[std::size_t(r.rule)], r.rule == 1 ? 0 : 1);
    EXPECT_EQ(b.s.run.stats.totalReductions[std::size_t(r.rule)], r.reductions);
    if (r.lines == 2) {  // nothing found, nothing changed
      EXPECT_EQ(b.s.run.stats.totalReductions, (std::array<int, 7>{}));
      EXPECT_EQ(b.s.BlanksLeft, 81);
    }
  }
  Board none;  // no blank left: every rule is silent
  none.s.BlanksLeft = 0;
  for (int rule = 1; rule <= 6; ++rule) none.apply(rule);
  EXPECT_EQ(none.narration(), "");
  EXPECT_EQ(none.s.run.stats.timesApplied, (std::array<int, 7>{}));
}

TEST(Rules, RemoveDuplicatesNarratesEachDeletionPassByPass) {
  Board b;
  b.set(22, "1259");
  b.set(4, "5");  // a single in the same column and box: never touched
  b.s.grid[24].value = 5;
  b.s.grid[24].candidates = CandidateSet();
  int counter = -1;
  // Cell 24 (row 3, col 6) holds 5: the row pass reaches 19..27, the column pass
  // 6, 15, ..., the box pass box 2.
  b.engine.removeDuplicates(24, 5, counter);
  const auto log = test::logLines(b.s);
  ASSERT_EQ(log.size(), 19u);
  EXPECT_EQ(log[0], "00Remove row duplicate 5 from choice 123456789 in row 3, col 1, cell 19");
  EXPECT_EQ(log[3], "00Remove row duplicate 5 from choice 1259 in row 3, col 4, cell 22");
  EXPECT_EQ(log[8], "00Remove col duplicate 5 from choice 123456789 in row 1, col 6, cell 6");
  EXPECT_EQ(log[18], "00Remove box duplicate 5 from choice 123456789 in row 2, col 5, cell 14");
  EXPECT_EQ(b.text(22) + "|" + b.text(4) + "|" + b.text(24), "129|5|");
  // Row: 8 peers; column: 8 peers; box: 5, 13 and 14 left (4 is a single; 6, 15,
  // 22 and 23 went in the earlier passes).
  EXPECT_EQ(counter, 8 + 8 + 3);
}

// A silent run (creation) makes Rule 1's removals by whole areas; the narrated
// run cell by cell. Both must leave the same grid: the same values placed and
// the same candidates, on real boards and on boards with candidates struck at
// random (two singles of one digit in an area, cells left with none).
TEST(Rules, Rule1LeavesTheSameGridSilentOrNarrated) {
  std::vector<std::string> puzzles;
  for (const char* name : {"top95.txt", "kaggle3m_sample200.txt"}) {
    std::ifstream in(test::puzzleFile(name));
    for (std::string line; std::getline(in, line);)
      if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  }
  ASSERT_GE(puzzles.size(), 290u);
  std::mt19937 draw(20261125);
  int boards = 0, withStruck = 0;
  for (const std::string& puzzle : puzzles)
    for (int strike = 0; strike <= 12; strike += 4, ++boards) {
      std::array<CandidateSet, kCells + 1> start{};
      {
        test::TestSession t;
        test::loadGivens(t.session, puzzle);
        SolverEngine(t.session).computeCandidates(false);
        for (int c = 1; c <= kCells; ++c) start[std::size_t(c)] = t.session.grid[c].candidates;
      }
      for (int k = 0; k < strike; ++k) {
        CandidateSet& cands = start[std::size_t(1 + draw() % kCells)];
        if (cands.empty()) continue;
        std::uint16_t bits = cands.bits();
        for (unsigned skip = draw() % unsigned(cands.size()); skip > 0; --skip) bits &= std::uint16_t(bits - 1);
        cands.remove(std::countr_zero(bits) + 1);
      }
      withStruck += strike > 0;
      std::array<std::string, 2> grids;
      for (const bool silent : {true, false}) {
        test::TestSession t;
        Session& s = t.session;
        test::loadGivens(s, puzzle);
        for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = start[std::size_t(c)];
        s.BlanksLeft = kCells - s.grid.filledCount();
        s.run.mode = silent ? RunState::Silent : RunState::NoPause;
        SolverEngine(s).applyRule1();
        std::string& grid = grids[silent ? 0 : 1];
        for (int c = 1; c <= kCells; ++c) grid += std::to_string(s.grid[c].value) + s.grid[c].candidates.text() + ",";
        grid += std::to_string(s.run.PlacementCount);
      }
      ASSERT_EQ(grids[0], grids[1]) << puzzle << " with " << strike << " candidates struck";
    }
  EXPECT_GT(withStruck, 800);
  EXPECT_EQ(boards, int(puzzles.size()) * 4);
}

TEST(CandidateTexts, RepeatsIgnoreNonDigits) {
  EXPECT_EQ(std::vector({hasRepeatedDigit("5353"), hasRepeatedDigit("53"), hasRepeatedDigit("5003.x")}),
            std::vector({true, false, false}));
}

// Project Euler grid 01: Rule 1 alone finishes it.
const std::string kEasy = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kPuzzle1 =
    "#1\r\n" + test::gridRows("4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5");

TEST(ReadPuzzle, AReadSetsTheTitleAndPlainCandidatesAndWaitsForStart) {
  // What a read narrates is pinned by the command-line cases (tests/data/cli/solve-*).
  test::TestSession t;
  Session& s = t.session;
  test::TempDir dir;
  test::writeFile(dir.file("a.sud"), kPuzzle1 + "\r\n" + kPuzzle1);
  s.run.mode = RunState::Released;
  ASSERT_TRUE(readPuzzle(s, dir.file("a.sud"), -1));  // -1: the last one
  EXPECT_EQ(std::to_string(s.collection.CurrentPuzzleNumber) + "|" + puzzleNumberText(s.collection.origin()).value_or("") + "|" + puzzleTitle(s.collection.origin()),
            "2|2|Puzzle 2 of 2 (57 blanks)");
  EXPECT_EQ(s.run.mode, RunState::Waiting);
  EXPECT_EQ(t.pacer.pauses, 0);
  // Plain candidates only: nothing is placed while reading.
  EXPECT_EQ(std::pair(s.givenCount(), s.grid.filledCount()), std::pair(24, 24));
  EXPECT_EQ(s.grid[1].candidates.text() + "|" + s.grid[2].candidates.text(), "4|568");
  EXPECT_TRUE(t.ui.messages.empty());
}

TEST(ReadPuzzle, ProblemsAreToldAndDuplicateGivensStayOnScreen) {
  const std::string nine = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";  // rows 2..9 empty
  // "@" stands for the file's path; the grid is its first two rows. Beyond the last: case solve-number-beyond.
  struct Row { std::string content; int n; std::string message, grid, lastLine; };
  const std::string none(18, '0');
  for (const Row& r : {
           Row{"no header here\r\n", 1, "@ does not appear to have any puzzles", none, ""},
           Row{kPuzzle1 + "\r\n#2\r\n1........\r\n", 2, "Puzzle number 2 is incomplete in file: @", none, ""},
           Row{"#1\r\n44.......\r\n" + nine, 1,
               "This Puzzle does not appear to be valid, please check fixed values for duplicates",
               "44" + std::string(16, '0'), ""},
           // Cell 9 sees 1..8 in its row and 9 in its column.
           Row{"#1\r\n12345678.\r\n........9" + nine, 1, "This Puzzle appears unsolvable!! Please check fixed values",
               "123456780000000009", "04This puzzle does not appear to have a solution!"}}) {
    test::TestSession t;
    Session& s = t.session;
    test::TempDir dir;
    test::writeFile(dir.file("p.sud"), r.content);
    EXPECT_FALSE(readPuzzle(s, dir.file("p.sud"), r.n));
    std::string message = r.message;
    if (const auto at = message.find('@'); at != std::string::npos) message.replace(at, 1, dir.file("p.sud"));
    EXPECT_EQ(t.ui.messages, Strings{message});
    EXPECT_EQ(s.grid.valueCode().substr(0, 18), r.grid) << message;
    EXPECT_EQ(s.log.TotalLines() ? s.log.listed(s.log.TotalLines()) : "", r.lastLine) << message;
  }
  // A window closed during the read ends it quietly.
  struct ClosingPacer : Pacer { bool processEvents() override { return false; } } closing;
  ScriptedUserInterface ui;
  Session s{Services{&ui, nullptr, &closing, nullptr, nullptr}};
  EXPECT_FALSE(readPuzzle(s, test::puzzleFile("pe96.sud"), 1));
  EXPECT_TRUE(ui.messages.empty());
}

/// A grid of blank cells, each with all nine candidates, unless a test loads givens.
class SolveRunTest : public ::testing::Test, protected Board {};

TEST_F(SolveRunTest, AGuessSavesTheUntriedDigitsAndTheGridAPlainPlacementDoesNot) {
  s.run.mode = RunState::NoPause;
  engine.placeValue(5, 2, CandidateSet::fromText("248"));
  engine.placeValue(6, 7, CandidateSet::of(7));
  EXPECT_EQ(s.grid[5].value * 10 + s.grid[6].value, 27);
  EXPECT_EQ(s.run.guessStack.entry(0) + "|" + s.run.guessStack.entry(1), "0000SQ05BX02VL48|" + std::string(81, '0'));
  EXPECT_EQ(std::tuple(s.run.guessStack.levels(), s.run.SavedGuessCount, s.run.PlacementCount, s.log.TotalLines()),
            std::tuple(1, 1, 2, 3));
}

TEST_F(SolveRunTest, ADeadEndRetriesTheNextDigitOfTheLastGuessAndAnExhaustedSearchBlanksTheGrid) {
  // Row 3 holds 1, 2, 4, 5, 6, 7 and box 3 holds 8 and 9: placing 3 in cell 23
  // leaves cell 26, the first of the two open cells of the row, without a candidate.
  test::loadGivens(s, "........8........91245.67.." + std::string(54, '.'));
  s.run.mode = RunState::NoPause;
  s.run.candidateQueue.insert({2, 5, 23, 2, CandidateSet::fromText("38")});
  s.run.PlacementCount = 5;  // not the first placement of the run: no random draw
  engine.placeNext();
  const Strings log = test::logLines(s);
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log[0], "00Set row 3, col 5, cell 23 to value 3, multiple choice=38");
  EXPECT_EQ(Strings(log.end() - 2, log.end()),
            (Strings{"04OOPs, this placement will leave cell 26 in box 3 with no valid options, must retract",
                     "04Retry row 3, col 5, cell 23 with value 8 instead"}));
  EXPECT_EQ(s.grid[23].value, 0);
  ASSERT_EQ(s.run.candidateQueue.size(), 1);
  EXPECT_EQ(s.run.candidateQueue[0].text(), "0000SQ23BX02VL8");
  EXPECT_TRUE(s.run.guessStack.empty());
  // The retry places 8 without saving a new level.
  const int before = s.log.TotalLines();
  engine.placeNext();
  EXPECT_EQ(s.log.listed(before + 1), "00Set row 3, col 5, cell 23 to value 8");
  EXPECT_EQ(s.run.SavedGuessCount, 1);

  // Givens that leave cell 9 without candidates and no guess to go back to.
  test::TestSession u;
  test::loadGivens(u.session, "12345678.........9" + std::string(63, '.'));
  u.session.run.mode = RunState::NoPause;
  u.session.run.candidateQueue.insert({1, 1, 10, 1, CandidateSet::of(4)});  // any placement; the analysis finds the dead cell
  u.session.run.PlacementCount = 1;
  SolverEngine(u.session).placeNext();
  EXPECT_EQ(u.session.grid.filledCount(), 0);
  EXPECT_EQ(u.ui.messages,
            Strings{"There appears to be no possible solution to this puzzle.\nPlease check you number placements."});
  EXPECT_TRUE(u.session.run.candidateQueue.empty());
  EXPECT_EQ(u.session.log.listed(u.session.log.TotalLines()),
            "04OOPs, this placement will leave cell 9 in box 3 with no valid options, must retract");
}

TEST_F(SolveRunTest, StartPausesAtEveryPausePointAndEndsWithNoRunUnderWay) {
  test::loadGivens(s, kEasy);
  s.controls.PauseCheck = false;
  engine.startCommand();
  // "Ready to start..." plus every deletion and placement line of the run.
  int expected = 0;
  for (int n = 1; n <= s.log.TotalLines(); ++n)
    for (const char* start : {"Ready to start", "Remove", "Set row"}) expected += s.log.text(n).starts_with(start);
  EXPECT_GT(expected, 40);
  EXPECT_EQ(t.pacer.pauses, expected);
  EXPECT_EQ(s.grid.filledCount(), 81);
  EXPECT_EQ(statusLine(s.run.ended), "Solved with no re-tries");
  EXPECT_EQ(s.run.mode, RunState::Silent);
  EXPECT_EQ(s.run.activity, RunActivity::None);
  EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(SolveRunTest, AFullGridStopsStartButSolveStillReportsAndSaysDone) {
  test::TempDir dir;
  test::WorkingFolder inside(dir.path());
  test::loadGivens(s, "534678912672195348198342567859761423426853791713924856961537284287419635345286179");
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, Strings{"There are no blanks in this puzzle"});
  EXPECT_EQ(s.log.TotalLines(), 0);
  t.ui.messages.clear();
  engine.computeCandidates(false);
  engine.solveCommand();
  EXPECT_EQ(t.ui.messages, Strings{"Done"});
  EXPECT_EQ(s.log.listed(1) + "|" + s.log.listed(3), "00The puzzle is solved|00Solved with no re-tries");
  EXPECT_EQ(readWholeFile("Eventlog.txt"), std::optional<std::string>(""));
}

TEST_F(SolveRunTest, ThePlacementLimitAbortsTheRun) {
  // An empty grid from a creation: the first placement is a guess that takes the
  // smallest digit, not a drawn one (drawn guesses and their warning: solve-golden-*-501).
  // The status line then names the ways on: a higher limit, and the further techniques while they are off.
  const std::tuple<TechniqueSet, const char*> cases[] = {
      {TechniqueSet::rulesOnly(),
       "Tried 1 times, solution aborted. To go on, raise Options > Attempt limit... or turn on Options > Further "
       "techniques"},
      {TechniqueSet::all(), "Tried 1 times, solution aborted. To go on, raise Options > Attempt limit..."}};
  for (const auto& [techniques, status] : cases) {
    s.grid.clear();
    t.ui.messages.clear();
    s.controls.techniques = techniques;
    s.run.CreationFlag = true;
    s.config.MaxTries = 1;
    s.controls.PauseCheck = true;
    engine.startCommand();
    EXPECT_EQ(t.ui.messages, Strings{"Tried 1 times, solution aborted"});
    EXPECT_EQ(statusLine(s.run.ended), status);
    EXPECT_EQ(std::tuple(s.run.PlacementCount, s.run.mode, s.grid[1].value), std::tuple(0, RunState::Released, 1));
  }
}

TEST_F(SolveRunTest, AFullLogStopsTheCommandWithAMessage) {
  s.config.MaxTries = 1000000;
  s.controls.PauseCheck = true;
  // A hardest-set puzzle with many retractions: more than 5000 lines.
  test::loadGivens(s, "8..........36......7..9.2...5...7.......457.....1...3...1....68..85...1..9....4..");
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (Strings{"This puzzle might have multiple solutions", "Event log is full (5000 lines)"}));
  EXPECT_EQ(s.log.TotalLines(), 5000);
  EXPECT_EQ(s.run.activity, RunActivity::None);
}

TEST(SolveCommand, EveryTop95PuzzleEndsSolvedOrAtThePlacementLimit) {
  int solved = 0;
  for (int n = 1; n <= 95; ++n) {
    SCOPED_TRACE("top95 puzzle " + std::to_string(n));
    test::TestSession t;
    Session& s = t.session;
    ASSERT_TRUE(readPuzzle(s, test::puzzleFile("top95.sud"), n));
    const std::string givens = s.grid.valueCode();
    SolverEngine(s).solveCommand();
    Strings messages = t.ui.messages;
    std::erase(messages, "This puzzle might have multiple solutions");  // the first guess of a run is drawn
    if (messages != Strings{"Done"}) {
      EXPECT_EQ(messages, (Strings{"Tried 250 times, solution aborted", "Done"}));
      continue;
    }
    // Complete, valid (its only solution is itself) and every given kept.
    const std::string grid = s.grid.valueCode();
    EXPECT_EQ(grid.find('0'), std::string::npos);
    EXPECT_EQ(countSolutions(grid, 2), 1) << grid;
    for (std::size_t i = 0; i < grid.size(); ++i)
      EXPECT_TRUE(givens[i] == '0' || grid[i] == givens[i]) << "cell " << i + 1;
    ++solved;
  }
  EXPECT_EQ(solved, 50);  // with the session's seeded draw; the other 45 reach the limit
}

}  // namespace
}  // namespace tessaly
