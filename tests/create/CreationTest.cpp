// The Create command: the blank count, seeding and completion, the four
// distributions and what a new puzzle leaves behind.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "create/CreateTestSupport.h"
#include "create/Creation.h"
#include "create/EntryDialogs.h"
#include "model/FileUtil.h"
#include "solver/SolverEngine.h"

namespace tessaly {
namespace {

using test::blankCells;
using test::CreateSession;
using Lines = std::vector<std::string>;
using Outcome = CreateResult::Outcome;
using enum BlankDistribution;

CreateResult create(CreateSession& t, const std::string& blanks, BlankDistribution distribution,
                    std::optional<std::string> manualTemplate = std::nullopt) {
  return PuzzleCreator(t.session).createCommand(CreateSettings{blanks, distribution, std::move(manualTemplate)});
}

bool completeAndValid(Session& s) { return s.grid.filledCount() == kCells && SolverEngine(s).givensAreValid(); }

/// The uniform number that makes a draw of 1..n come out as k.
double drawFor(int k, int n) { return (k - 0.5) / n; }

TEST(CreateBlankCount, NineToSeventyTwoByNumericValueAnythingElseIsRefusedAndNothingChanges) {
  const std::string puzzle = "003020600900305001001806400008102900700000008006708200002609500800203009005010300";
  struct Case {
    const char* typed;
    BlankDistribution distribution;
    int blanks;           // when created
    const char* refusal;  // when refused
  };
  const Case cases[] = {
      {"9", Random, 9, nullptr},      {"72", Random, 72, nullptr},       {" 30 blanks", Random, 30, nullptr},
      {"8", Mirror, 0, kTooFewBlanks}, {"73", Mirror, 0, kTooManyBlanks}, {"abc", Mirror, 0, kTooFewBlanks},
      {"", Mirror, 0, kTooFewBlanks},  {"-5", Mirror, 0, kTooFewBlanks},  {"1000000", Mirror, 0, kTooManyBlanks}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.typed);
    CreateSession t;
    test::loadGivens(t.session, puzzle);
    t.session.PuzzleTitle = "Puzzle 1 of 1 (49 blanks)";
    CreateResult r = create(t, c.typed, c.distribution);
    EXPECT_EQ(r.settings.TotBlanks, c.typed);  // Random leaves the box as typed
    if (!c.refusal) {
      EXPECT_EQ(r.outcome, Outcome::Created);
      EXPECT_EQ(blankCells(t.session), c.blanks);
      EXPECT_TRUE(t.ui.messages.empty());
      continue;
    }
    EXPECT_EQ(r.outcome, Outcome::Refused);
    EXPECT_EQ(t.ui.messages, Lines{c.refusal});
    EXPECT_EQ(t.session.grid.valueCode(), puzzle);
    EXPECT_EQ(t.session.PuzzleTitle, "Puzzle 1 of 1 (49 blanks)");
    EXPECT_FALSE(t.session.run.CreationFlag);
    EXPECT_TRUE(t.display.views.empty());
    EXPECT_EQ(fileLength(t.tempFile()), -1);
  }
}

TEST(CreateCompletion, ASilentRunFromEmptyRecordsCompletesAValidSudokuAroundTheSeeds) {
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    CreateSession t(std::make_unique<SeededRandom>(seed));
    // Records of an earlier run: a stale guess level would be retried into the new grid.
    t.session.run.guessStack.push(GuessLevel{});
    t.session.run.candidateQueue.insert(QueueEntry{1, 1, 5, 2, "7"});
    SeededRandom twin(seed);  // the same draws: digit d goes to the drawn position of box d
    ASSERT_TRUE(PuzzleCreator(t.session).completeGrid());
    EXPECT_TRUE(t.session.run.CreationFlag);
    EXPECT_EQ(t.session.run.mode, RunState::Silent);
    EXPECT_EQ(t.session.log.TotalLines(), 0);
    EXPECT_TRUE(t.session.run.candidateQueue.empty());
    EXPECT_EQ(t.display.views, std::vector<bool>{false});
    EXPECT_TRUE(completeAndValid(t.session));
    for (int d = 1; d <= 9; ++d) {
      const int cell = areaCells(AreaKind::Box, d)[std::size_t(drawOneTo(twin, 9) - 1)];
      EXPECT_EQ(t.session.grid[cell].value, d);
      EXPECT_TRUE(t.session.grid[cell].given);
    }
    EXPECT_EQ(t.session.grid.givensCount(), 9);  // the solver marks nothing
    EXPECT_TRUE(t.ui.messages.empty());
  }
}

TEST(CreateCompletion, ARunPastMaxTriesBlanksAndSavesNothing) {
  CreateSession t;
  t.session.config.MaxTries = 5;
  EXPECT_EQ(create(t, "40", Random).outcome, Outcome::Failed);
  EXPECT_EQ(t.ui.messages, (Lines{"Tried 5 times, solution aborted", kCreationFailed}));
  EXPECT_EQ(fileLength(t.tempFile()), -1);
  EXPECT_NE(t.session.PuzNumNow, "NEW");
  EXPECT_EQ(t.display.views, (std::vector<bool>{false, true}));
  EXPECT_GT(t.session.grid.filledCount(), 9);  // what the run filled stays, nothing blanked
}

TEST(CreateDistribution, CountsAndPatternsOverTenSeedsEach) {
  struct Case {
    BlankDistribution distribution;
    const char* asked;
    const char* shown;  // TotBlanks afterwards
    int least, most;    // blank cells
  };
  const Case cases[] = {{Mirror, "41", "40", 40, 41}, {ByBox, "40", "36", 36, 36}, {Random, "23", "23", 23, 23},
                        {Random, "64", "64", 64, 64}};
  for (const Case& c : cases)
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
      SCOPED_TRACE(std::string(c.asked) + " seed " + std::to_string(seed));
      CreateSession t(std::make_unique<SeededRandom>(seed));
      CreateResult r = create(t, c.asked, c.distribution);
      ASSERT_TRUE(r.created());
      EXPECT_EQ(r.settings.TotBlanks, c.shown);
      EXPECT_EQ(r.settings.distribution, c.distribution);
      EXPECT_EQ(r.blanks, blankCells(t.session));
      EXPECT_GE(r.blanks, c.least);
      EXPECT_LE(r.blanks, c.most);
      const auto blank = [&](int cell) { return t.session.grid[cell].value == 0; };
      for (int cell = 1; cell <= kCells && c.distribution == Mirror; ++cell)  // point-symmetric pairs
        EXPECT_EQ(blank(cell), blank(kCells + 1 - cell)) << cell;
      for (int box = 1; box <= 9 && c.distribution == ByBox; ++box) {
        const AreaCells& cells = areaCells(AreaKind::Box, box);
        EXPECT_EQ(std::count_if(cells.begin(), cells.end(), blank), 4) << "box " << box;
      }
    }
}

TEST(CreateDistribution, MirrorsCentreCellCanTakeTheCountOneAboveTheTarget) {
  // Nine seed draws, then pairs at cells 1..19 (38 blanks), the centre (39) and
  // cell 20 with its partner (41): the target of 40 is passed by one.
  std::vector<double> draws(9, drawFor(1, 9));
  for (int cell : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 41, 20}) {
    draws.push_back(drawFor(CellRow[cell], 9));
    draws.push_back(drawFor(CellCol[cell], 9));
  }
  CreateSession t(std::make_unique<ScriptedRandom>(draws));
  CreateResult r = create(t, "41", Mirror);
  ASSERT_TRUE(r.created());
  EXPECT_EQ(r.settings.TotBlanks, "40");
  EXPECT_EQ(blankCells(t.session), 41);
  EXPECT_EQ(t.session.PuzzleTitle, "New Puzzle (41 blanks)");
  for (int cell : {1, 19, 20, 41, 62, 63, 81}) EXPECT_EQ(t.session.grid[cell].value, 0) << cell;
  EXPECT_NE(t.session.grid[21].value, 0);
}

TEST(CreateDistribution, ShufflesSwapFromTheTopDown) {
  // Every draw of 1..i comes out as 1: entry i is exchanged with entry 1 for
  // i = 9 down to 1, which rotates the order to 2 3 4 5 6 7 8 9 1. (That the
  // shuffles stay permutations shows in the exact counts of Random and by Box.)
  CreateSession t(std::make_unique<ScriptedRandom>(std::vector<double>{0.0}));
  PuzzleCreator(t.session).shuffleBoxPositionOrder();
  EXPECT_EQ(t.session.BoxPositionOrder, (std::array<int, 10>{0, 2, 3, 4, 5, 6, 7, 8, 9, 1}));
}

TEST(CreateManual, UnusableTemplatesFallBackToRandom) {
  const std::pair<std::optional<std::string>, const char*> cases[] = {
      {std::nullopt, kTemplateNotAccepted},          {std::string(80, 'X'), kTemplateNotAccepted},
      {std::string(81, '.'), kTemplateAllBlanks},    {std::string(81, 'X'), kTemplateNoBlanks},
      {defaultTemplateText(), kTemplateNoBlanks}};
  for (const auto& [pattern, message] : cases) {
    CreateSession t;
    CreateResult r = create(t, "33", Manual, pattern);
    ASSERT_TRUE(r.created());
    EXPECT_EQ(t.ui.messages, Lines{message});
    EXPECT_EQ(r.settings.distribution, Random);
    EXPECT_EQ(blankCells(t.session), 33);
  }
}

TEST(CreateNewPuzzle, KeptCellsBecomeGivensWithCandidatesForTheBlanks) {
  CreateSession t(std::make_unique<SeededRandom>(3));
  Session& s = t.session;
  s.controls.nextEnabled = true;
  s.controls.startEnabled = s.controls.editEnabled = false;
  s.run.stats.totalReductions[2] = 9;
  ASSERT_TRUE(create(t, "45", Random).created());
  EXPECT_EQ(s.givenCount(), 36);
  EXPECT_EQ(s.BlanksLeft, 45);
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    EXPECT_EQ(cell.given, cell.value != 0) << c;
    // A given shows its digit; a blank keeps at least the completed grid's digit.
    if (cell.value) {
      EXPECT_EQ(cell.candidates, CandidateSet::of(cell.value)) << c;
    } else {
      EXPECT_FALSE(cell.candidates.empty()) << c;
    }
  }
  EXPECT_EQ(s.PuzNumNow, "NEW");
  EXPECT_EQ(s.PuzzleTitle, "New Puzzle (45 blanks)");
  EXPECT_FALSE(s.controls.nextEnabled);
  EXPECT_TRUE(s.controls.startEnabled && s.controls.editEnabled);
  EXPECT_EQ(s.run.stats.totalReductions[2], 0);
  EXPECT_EQ(t.display.views, (std::vector<bool>{false, true}));
  EXPECT_TRUE(SolverEngine(s).givensAreValid());

  // The puzzle can be solved.
  s.run.PlacementCount = 0;
  s.run.mode = RunState::NoPause;
  SolverEngine(s).solveAll();
  EXPECT_TRUE(completeAndValid(s));
}

TEST(CreateNewPuzzle, AnUnwritablePuzTempIsToldButThePuzzleStands) {
  CreateSession t;
  t.session.appDir = t.dir.file("missing/");
  EXPECT_TRUE(create(t, "20", Random).created());
  EXPECT_EQ(t.ui.messages, Lines{"Could not write file: " + t.dir.file("missing/PuzTemp.sud")});
  EXPECT_EQ(t.session.PuzNumNow, "NEW");
}

TEST(CreateWithAStoppedClock, TwoHundredMirrorCreationsInARowAllEnd) {
  // Draws taken within one clock tick must still differ, or the Mirror loop
  // would redraw the same pair for ever. A seeding that needs more placements
  // than MaxTries allows ends with its messages instead.
  const FixedClock stopped({12, 0, 0, 123456789});
  CreateSession t(std::make_unique<ClockMixedRandom>(stopped));
  PuzzleCreator creator(t.session);
  std::set<std::string> grids;
  int failed = 0;
  for (int i = 0; i < 200; ++i) {
    t.ui.messages.clear();
    CreateResult r = creator.createCommand(CreateSettings{"41", Mirror, std::nullopt});
    if (r.created()) {
      EXPECT_TRUE(r.blanks == 40 || r.blanks == 41) << i << ": " << r.blanks;
      EXPECT_TRUE(t.ui.messages.empty()) << i;
      grids.insert(t.session.grid.valueCode());
    } else {
      ++failed;
      EXPECT_EQ(t.ui.messages, (Lines{"Tried 250 times, solution aborted", kCreationFailed})) << i;
    }
  }
  EXPECT_EQ(grids.size() + std::size_t(failed), 200u);  // no two puzzles alike
}

}  // namespace
}  // namespace tessaly
