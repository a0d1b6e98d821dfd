// The Create command: blank counts, seeding and completion, the four
// distributions and what a new puzzle leaves behind.

#include <gtest/gtest.h>

#include <set>

#include "create/CreateTestSupport.h"
#include "create/Creation.h"
#include "create/EntryDialogs.h"
#include "model/FileUtil.h"

namespace tessaly {
namespace {

using test::CreateSession;
using Outcome = CreateResult::Outcome;

CreateSettings settings(const std::string& blanks, BlankDistribution distribution,
                        std::optional<std::string> manualTemplate = std::nullopt) {
  return CreateSettings{blanks, distribution, std::move(manualTemplate)};
}

// --- the blank count

TEST(CreateBlankCount, NineAndSeventyTwoAreAccepted) {
  for (const char* blanks : {"9", "72"}) {
    CreateSession t;
    CreateResult r = PuzzleCreator(t.session).createCommand(settings(blanks, BlankDistribution::Random));
    EXPECT_EQ(r.outcome, Outcome::Created) << blanks;
    EXPECT_EQ(test::blankCells(t.session), std::stoi(blanks));
    EXPECT_TRUE(t.ui.messages.empty());
  }
}

TEST(CreateBlankCount, EightAndSeventyThreeAreRefusedAndNothingChanges) {
  const std::string puzzle = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
  struct Case {
    const char* blanks;
    const char* message;
  };
  for (Case c : {Case{"8", kTooFewBlanks}, Case{"73", kTooManyBlanks}, Case{"abc", kTooFewBlanks},
                 Case{"", kTooFewBlanks}, Case{"-5", kTooFewBlanks}, Case{"1000000", kTooManyBlanks}}) {
    CreateSession t;
    test::loadGivens(t.session, puzzle);
    t.session.PuzzleTitle = "Puzzle 1 of 1 (49 blanks)";
    CreateResult r = PuzzleCreator(t.session).createCommand(settings(c.blanks, BlankDistribution::Mirror));
    EXPECT_EQ(r.outcome, Outcome::Refused) << c.blanks;
    EXPECT_EQ(r.settings.TotBlanks, c.blanks);
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{c.message}) << c.blanks;
    EXPECT_EQ(test::gridText(t.session), puzzle);
    EXPECT_EQ(t.session.PuzzleTitle, "Puzzle 1 of 1 (49 blanks)");
    EXPECT_FALSE(t.session.run.CreationFlag);
    EXPECT_TRUE(t.display.views.empty());
    EXPECT_EQ(fileLength(t.tempFile()), -1);
  }
}

TEST(CreateBlankCount, TheTextIsReadByItsNumericValue) {
  CreateSession t;
  CreateResult r = PuzzleCreator(t.session).createCommand(settings(" 30 blanks", BlankDistribution::Random));
  ASSERT_TRUE(r.created());
  EXPECT_EQ(test::blankCells(t.session), 30);
  EXPECT_EQ(r.settings.TotBlanks, " 30 blanks");  // Random leaves the box as typed
}

// --- seeding and completion

TEST(CreateCompletion, SeedsPutDigitDAtTheDrawnPositionOfBoxD) {
  // Draws 1, 9, 5, 2, 8, 3, 7, 4, 6 for boxes 1..9.
  const int positions[9] = {1, 9, 5, 2, 8, 3, 7, 4, 6};
  std::vector<double> draws;
  for (int p : positions) draws.push_back(test::drawFor(p, 9));
  CreateSession t(std::make_unique<ScriptedRandom>(draws));
  PuzzleCreator(t.session).seedGrid();
  EXPECT_EQ(t.session.grid.filledCount(), 9);
  for (int d = 1; d <= 9; ++d) {
    const int cell = areaCells(AreaKind::Box, d)[std::size_t(positions[d - 1] - 1)];
    EXPECT_EQ(t.session.grid[cell].value, d);
    EXPECT_TRUE(t.session.grid[cell].given);
  }
}

TEST(CreateCompletion, EveryCompletedGridIsAValidSudokuAroundItsSeeds) {
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    CreateSession t(std::make_unique<SeededRandom>(seed));
    SeededRandom twin(seed);  // the same draws, to know the seed positions
    int positions[10] = {};
    for (int d = 1; d <= 9; ++d) positions[d] = drawOneTo(twin, 9);

    ASSERT_TRUE(PuzzleCreator(t.session).completeGrid()) << seed;
    EXPECT_TRUE(test::completeAndValid(t.session)) << seed;
    for (int d = 1; d <= 9; ++d) {
      const int cell = areaCells(AreaKind::Box, d)[std::size_t(positions[d] - 1)];
      EXPECT_EQ(t.session.grid[cell].value, d) << seed;
      EXPECT_TRUE(t.session.grid[cell].given) << seed;
    }
    // Only the seeds carry the mark at this point; the solver marks nothing.
    EXPECT_EQ(t.session.grid.givensCount(), 9) << seed;
    EXPECT_TRUE(t.ui.messages.empty()) << seed;
  }
}

TEST(CreateCompletion, TheRunIsSilentAndRaisesTheCreationFlag) {
  // Records left by an earlier run must not take part: a stale guess level
  // would be retried into the new grid.
  CreateSession t;
  t.session.run.guessStack.push(GuessLevel{});
  t.session.run.candidateQueue.insert(QueueEntry{1, 1, 5, 2, "7"});
  t.session.run.stats.timesApplied[3] = 4;
  ASSERT_TRUE(PuzzleCreator(t.session).completeGrid());
  EXPECT_TRUE(t.session.run.CreationFlag);
  EXPECT_EQ(t.session.run.mode, RunState::Silent);
  EXPECT_EQ(t.session.log.TotalLines(), 0);
  EXPECT_TRUE(t.session.run.candidateQueue.empty());
  EXPECT_EQ(t.display.views, std::vector<bool>{false});
}

TEST(CreateCompletion, ARunPastMaxTriesBlanksAndSavesNothing) {
  CreateSession t;
  t.session.config.MaxTries = 5;
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("40", BlankDistribution::Random));
  EXPECT_EQ(r.outcome, Outcome::Failed);
  EXPECT_EQ(t.ui.messages,
            (std::vector<std::string>{"Tried 5 times, solution aborted", "Puzzle creation failed, please try again"}));
  EXPECT_EQ(fileLength(t.tempFile()), -1);
  EXPECT_NE(t.session.PuzNumNow, "NEW");
  EXPECT_EQ(t.display.views, (std::vector<bool>{false, true}));
  EXPECT_TRUE(t.session.run.CreationFlag);
  // What the run filled stays; nothing was blanked out of it.
  EXPECT_GT(t.session.grid.filledCount(), 9);
}

// --- the distributions

TEST(CreateMirror, FortyOneAsksForFortyAndBlanksPointSymmetricPairs) {
  std::set<int> counts;
  for (std::uint64_t seed = 1; seed <= 30; ++seed) {
    CreateSession t(std::make_unique<SeededRandom>(seed));
    CreateResult r = PuzzleCreator(t.session).createCommand(settings("41", BlankDistribution::Mirror));
    ASSERT_TRUE(r.created()) << seed;
    EXPECT_EQ(r.settings.TotBlanks, "40");
    EXPECT_EQ(r.settings.distribution, BlankDistribution::Mirror);
    const int blanks = test::blankCells(t.session);
    EXPECT_TRUE(blanks == 40 || blanks == 41) << seed << ": " << blanks;
    EXPECT_EQ(r.blanks, blanks);
    counts.insert(blanks);
    for (int c = 1; c <= kCells; ++c)
      EXPECT_EQ(t.session.grid[c].value == 0, t.session.grid[kCells + 1 - c].value == 0) << seed << " cell " << c;
  }
}

TEST(CreateMirror, TheCentreCellCanTakeTheCountOneAboveTheTarget) {
  // Nine seed draws, then pairs at cells 1..19 (38 blanks), the centre (39) and
  // cell 20 with its partner (41): the target of 40 is passed by one.
  std::vector<double> draws;
  for (int d = 1; d <= 9; ++d) draws.push_back(test::drawFor(1, 9));
  auto pick = [&](int cell) {
    draws.push_back(test::drawFor(CellRow[cell], 9));
    draws.push_back(test::drawFor(CellCol[cell], 9));
  };
  for (int cell = 1; cell <= 19; ++cell) pick(cell);
  pick(41);
  pick(20);
  CreateSession t(std::make_unique<ScriptedRandom>(draws));
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("41", BlankDistribution::Mirror));
  ASSERT_TRUE(r.created());
  EXPECT_EQ(r.settings.TotBlanks, "40");
  EXPECT_EQ(test::blankCells(t.session), 41);
  EXPECT_EQ(t.session.PuzzleTitle, "New Puzzle (41 blanks)");
  for (int cell : {1, 19, 20, 41, 62, 63, 81}) EXPECT_EQ(t.session.grid[cell].value, 0) << cell;
  EXPECT_NE(t.session.grid[21].value, 0);
}

TEST(CreateByBox, FortyGivesThirtySixWithFourInEachBox) {
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    CreateSession t(std::make_unique<SeededRandom>(seed));
    CreateResult r = PuzzleCreator(t.session).createCommand(settings("40", BlankDistribution::ByBox));
    ASSERT_TRUE(r.created());
    EXPECT_EQ(r.settings.TotBlanks, "36");
    EXPECT_EQ(r.blanks, 36);
    for (int box = 1; box <= 9; ++box) {
      int blanks = 0;
      for (int cell : areaCells(AreaKind::Box, box)) blanks += t.session.grid[cell].value == 0;
      EXPECT_EQ(blanks, 4) << "box " << box;
    }
  }
}

TEST(CreateRandom, BlanksExactlyTheCountAsked) {
  for (int blanks : {9, 23, 41, 64, 72}) {
    CreateSession t(std::make_unique<SeededRandom>(std::uint64_t(blanks)));
    CreateResult r = PuzzleCreator(t.session).createCommand(settings(std::to_string(blanks), BlankDistribution::Random));
    ASSERT_TRUE(r.created());
    EXPECT_EQ(test::blankCells(t.session), blanks);
    EXPECT_EQ(r.settings.TotBlanks, std::to_string(blanks));
  }
}

TEST(CreateRandom, ShufflesKeepPermutations) {
  CreateSession t(std::make_unique<SeededRandom>(7));
  PuzzleCreator creator(t.session);
  for (int round = 0; round < 5; ++round) {
    creator.shuffleCellOrder();
    creator.shuffleBoxPositionOrder();
    std::set<int> cells(t.session.CellOrder.begin() + 1, t.session.CellOrder.end());
    std::set<int> positions(t.session.BoxPositionOrder.begin() + 1, t.session.BoxPositionOrder.end());
    EXPECT_EQ(cells.size(), 81u);
    EXPECT_EQ(*cells.begin(), 1);
    EXPECT_EQ(*cells.rbegin(), 81);
    EXPECT_EQ(positions.size(), 9u);
    EXPECT_EQ(*positions.begin(), 1);
    EXPECT_EQ(*positions.rbegin(), 9);
  }
}

TEST(CreateRandom, ShuffleSwapsFromTheTopDown) {
  // Every draw of 1..i comes out as 1: entry i is exchanged with entry 1 for
  // i = 9 down to 1, which rotates the order to 2 3 4 5 6 7 8 9 1.
  CreateSession t(std::make_unique<ScriptedRandom>(std::vector<double>{0.0}));
  PuzzleCreator(t.session).shuffleBoxPositionOrder();
  const std::array<int, 10> expected{0, 2, 3, 4, 5, 6, 7, 8, 9, 1};
  EXPECT_EQ(t.session.BoxPositionOrder, expected);
}

TEST(CreateManual, AnAcceptedTemplateBlanksItsBlankCells) {
  std::string pattern(81, 'X');
  for (int cell : {1, 2, 13, 41, 55, 80, 81}) pattern[std::size_t(cell - 1)] = '.';
  CreateSession t;
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("30", BlankDistribution::Manual, pattern));
  ASSERT_TRUE(r.created());
  EXPECT_EQ(r.settings.distribution, BlankDistribution::Manual);
  EXPECT_EQ(r.settings.TotBlanks, "30");
  EXPECT_EQ(r.blanks, 7);
  for (int c = 1; c <= kCells; ++c) EXPECT_EQ(t.session.grid[c].value == 0, pattern[std::size_t(c - 1)] == '.') << c;
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(t.session.PuzzleTitle, "New Puzzle (7 blanks)");
}

TEST(CreateManual, TheDialogsTextWithLineBreaksAndBlanksIsUsedAsItStands) {
  std::string text = defaultTemplateText();
  text[0] = ' ';
  text[11] = ' ';  // row 2, column 2
  CreateSession t;
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("30", BlankDistribution::Manual, text));
  ASSERT_TRUE(r.created());
  EXPECT_EQ(r.blanks, 2);
  EXPECT_EQ(t.session.grid[1].value, 0);
  EXPECT_EQ(t.session.grid[11].value, 0);
}

TEST(CreateManual, UnusableTemplatesFallBackToRandom) {
  struct Case {
    std::optional<std::string> pattern;
    const char* message;
  };
  const Case cases[] = {
      {std::nullopt, "Random placement will be used"},
      {std::string(80, 'X'), "Random placement will be used"},
      {std::string(81, '.'), "Grid is all blanks, random placement will be used"},
      {std::string(81, 'X'), "There are no blanks in this grid, random placement will be used"},
      {defaultTemplateText(), "There are no blanks in this grid, random placement will be used"},
  };
  for (const Case& c : cases) {
    CreateSession t;
    CreateResult r = PuzzleCreator(t.session).createCommand(settings("33", BlankDistribution::Manual, c.pattern));
    ASSERT_TRUE(r.created());
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(r.settings.distribution, BlankDistribution::Random);
    EXPECT_EQ(test::blankCells(t.session), 33);
  }
}

// --- the new puzzle

TEST(CreateNewPuzzle, KeptCellsBecomeGivensWithCandidatesForTheBlanks) {
  CreateSession t(std::make_unique<SeededRandom>(3));
  t.session.controls.nextEnabled = true;
  t.session.controls.startEnabled = false;
  t.session.controls.editEnabled = false;
  t.session.run.stats.totalReductions[2] = 9;
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("45", BlankDistribution::Random));
  ASSERT_TRUE(r.created());
  Session& s = t.session;
  EXPECT_EQ(s.givenCount(), 36);
  EXPECT_EQ(s.BlanksLeft, 45);
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    if (cell.value) {
      EXPECT_TRUE(cell.given) << c;
      EXPECT_EQ(cell.candidates, CandidateSet::of(cell.value)) << c;
    } else {
      EXPECT_FALSE(cell.given) << c;
      EXPECT_FALSE(cell.candidates.empty()) << c;  // the completed grid's digit is always left
    }
  }
  EXPECT_EQ(s.PuzNumNow, "NEW");
  EXPECT_EQ(s.PuzzleTitle, "New Puzzle (45 blanks)");
  EXPECT_FALSE(s.controls.nextEnabled);
  EXPECT_TRUE(s.controls.startEnabled);
  EXPECT_TRUE(s.controls.editEnabled);
  EXPECT_EQ(s.run.stats.totalReductions[2], 0);
  EXPECT_TRUE(s.run.CreationFlag);
  EXPECT_EQ(s.run.mode, RunState::Silent);
  EXPECT_EQ(t.display.views, (std::vector<bool>{false, true}));
  EXPECT_TRUE(SolverEngine(s).givensAreValid());
}

TEST(CreateNewPuzzle, EachPuzzleIsAppendedToPuzTempAsNumberOne) {
  CreateSession t;
  PuzzleCreator creator(t.session);
  std::string expected;
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(creator.createCommand(settings("50", BlankDistribution::Mirror)).created());
    expected += "#001\r\n";
    const std::string grid = test::gridText(t.session);
    for (int r = 0; r < 9; ++r) expected += grid.substr(std::size_t(r) * 9, 9) + "\r\n";
  }
  EXPECT_EQ(readWholeFile(t.tempFile()).value_or("<missing>"), expected);
}

TEST(CreateNewPuzzle, AnExistingPuzTempKeepsItsContent) {
  CreateSession t;
  ASSERT_TRUE(writeFileAtomically(t.tempFile(), "#7\r\n"));
  ASSERT_TRUE(PuzzleCreator(t.session).createCommand(settings("20", BlankDistribution::Random)).created());
  const std::string content = readWholeFile(t.tempFile()).value_or("");
  EXPECT_EQ(content.substr(0, 10), "#7\r\n#001\r\n");
  EXPECT_EQ(content.size(), 10u + 9u * 11u);
}

TEST(CreateNewPuzzle, AnUnwritablePuzTempIsToldButThePuzzleStands) {
  CreateSession t;
  t.session.appDir = t.dir.path() + "/missing/";
  CreateResult r = PuzzleCreator(t.session).createCommand(settings("20", BlankDistribution::Random));
  EXPECT_TRUE(r.created());
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Could not write file: " + t.dir.path() + "/missing/PuzTemp.sud"});
  EXPECT_EQ(t.session.PuzNumNow, "NEW");
}

TEST(CreateNewPuzzle, TheSameDrawsGiveTheSamePuzzle) {
  CreateSession a(std::make_unique<SeededRandom>(11)), b(std::make_unique<SeededRandom>(11));
  PuzzleCreator(a.session).createCommand(settings("41", BlankDistribution::Mirror));
  PuzzleCreator(b.session).createCommand(settings("41", BlankDistribution::Mirror));
  EXPECT_EQ(test::gridText(a.session), test::gridText(b.session));
}

TEST(CreateNewPuzzle, TheCreatedPuzzleCanBeSolved) {
  CreateSession t(std::make_unique<SeededRandom>(5));
  ASSERT_TRUE(PuzzleCreator(t.session).createCommand(settings("55", BlankDistribution::Random)).created());
  t.session.run.PlacementCount = 0;
  t.session.run.mode = RunState::NoPause;
  SolverEngine(t.session).solveAll();
  EXPECT_TRUE(test::completeAndValid(t.session));
}

TEST(CreateWithTheClock, TwoHundredMirrorCreationsInARowAllFinish) {
  // Draws taken within one clock tick must still differ, or the Mirror loop
  // would redraw the same pair for ever. A rare seeding needs more placements
  // than MaxTries allows; such a creation ends with its message instead.
  SystemClock clock;
  CreateSession t(std::make_unique<ClockMixedRandom>(clock));
  PuzzleCreator creator(t.session);
  std::set<std::string> distinct;
  int failed = 0;
  for (int i = 0; i < 200; ++i) {
    CreateResult r = creator.createCommand(settings("41", BlankDistribution::Mirror));
    if (!r.created()) {
      ++failed;
      continue;
    }
    ASSERT_GE(r.blanks, 40);
    ASSERT_LE(r.blanks, 41);
    distinct.insert(test::gridText(t.session));
  }
  EXPECT_LE(failed, 4);
  for (const std::string& m : t.ui.messages)
    EXPECT_TRUE(m == "Puzzle creation failed, please try again" || m == "Tried 250 times, solution aborted") << m;
  EXPECT_GT(distinct.size(), 190u - unsigned(failed));
}

}  // namespace
}  // namespace tessaly
