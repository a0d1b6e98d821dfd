// Saving into the current collection: Save new puzzle, Save this puzzle and the
// batch of created puzzles.

#include <gtest/gtest.h>

#include "create/CreateTestSupport.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"

namespace tessaly {
namespace {

// Project Euler grid 01 and its solution.
const std::string kPuzzle = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kSolution =
    "483921657967345821251876493548132976729564138136798245372689514814253769695417382";

std::string record(int number, const std::string& cells, bool blankLineBefore) {
  std::string text = blankLineBefore ? "\r\n" : "";
  text += "#" + std::to_string(number) + "\r\n";
  for (int r = 0; r < 9; ++r) text += cells.substr(std::size_t(r) * 9, 9) + "\r\n";
  return text;
}

class SaveTest : public ::testing::Test {
 protected:
  void SetUp() override { s.collection.CurrentFile = t.dir.file("Mine.sud"); }
  std::string fileText() const { return readWholeFile(s.collection.CurrentFile).value_or("<missing>"); }

  test::CreateSession t;
  Session& s = t.session;
};

// --- Save new puzzle

TEST_F(SaveTest, NewOnAnEmptyGridAsksForAPuzzleFirst) {
  EXPECT_FALSE(saveNewCommand(s));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Create a valid puzzle first"});
  EXPECT_TRUE(t.ui.questions.empty());
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
}

TEST_F(SaveTest, NewAnsweredNoWritesNothing) {
  test::loadGivens(s, kPuzzle);
  t.ui.answers.push_back(false);
  EXPECT_FALSE(saveNewCommand(s));
  EXPECT_EQ(t.ui.questions, std::vector<std::string>{"Save this puzzle?"});
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
}

TEST_F(SaveTest, NewAppendsTheGivensUnderTheNextNumber) {
  test::loadGivens(s, kPuzzle);
  ASSERT_TRUE(saveNewCommand(s));
  ASSERT_TRUE(saveNewCommand(s));
  EXPECT_EQ(fileText(), record(1, kPuzzle, false) + record(2, kPuzzle, true));
  EXPECT_EQ(t.ui.questions, (std::vector<std::string>{"Save this puzzle?", "Save this puzzle?"}));
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Puzzle# 1 added to file: " + s.collection.CurrentFile,
                                                     "Puzzle# 2 added to file: " + s.collection.CurrentFile}));
  EXPECT_EQ(s.collection.TotalPuzzles, 2);
  EXPECT_EQ(s.collection.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.PuzNumNow, "2");
  EXPECT_EQ(s.PuzzleTitle, "Puzzle 2 of 2 (49 blanks)");
}

TEST_F(SaveTest, TheThirteenthPuzzleIsToldWithItsNumber) {
  std::string twelve;
  for (int n = 1; n <= 12; ++n) twelve += record(n + 100, kPuzzle, n > 1);
  ASSERT_TRUE(writeFileAtomically(s.collection.CurrentFile, twelve));
  test::loadGivens(s, kPuzzle);
  ASSERT_TRUE(saveNewCommand(s));
  EXPECT_EQ(t.ui.messages.back(), "Puzzle# 13 added to file: " + s.collection.CurrentFile);
  EXPECT_EQ(fileText(), twelve + record(13, kPuzzle, true));
}

TEST_F(SaveTest, ValuesWithoutGivenMarksAreWrittenAsDots) {
  for (int c = 1; c <= kCells; ++c) s.grid[c].value = kSolution[std::size_t(c - 1)] - '0';
  ASSERT_TRUE(saveNewCommand(s));
  EXPECT_EQ(fileText(), record(1, std::string(81, '.'), false));
}

TEST_F(SaveTest, AFailedWriteIsToldAndStops) {
  test::loadGivens(s, kPuzzle);
  s.collection.CurrentFile = t.dir.file("missing/Mine.sud");
  s.PuzzleTitle = "before";
  EXPECT_FALSE(saveNewCommand(s));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Could not write file: " + s.collection.CurrentFile});
  EXPECT_EQ(s.PuzzleTitle, "before");
}

// --- Save this puzzle

TEST_F(SaveTest, ThisPuzzleMustBeSolvedFirst) {
  test::loadGivens(s, kPuzzle);
  s.MesLab = "status";
  EXPECT_FALSE(saveThisPuzzleCommand(s));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Solve this puzzle first before saving"});
  EXPECT_TRUE(t.ui.questions.empty());
  EXPECT_EQ(s.MesLab, "status");
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
}

TEST_F(SaveTest, ASolvedPuzzleIsSavedAsItsGivensOnly) {
  test::loadGivens(s, kPuzzle);
  s.run.mode = RunState::NoPause;
  SolverEngine(s).solveAll();
  ASSERT_TRUE(test::completeAndValid(s));
  s.MesLab = "Solved with no re-tries";
  t.ui.messages.clear();

  ASSERT_TRUE(saveThisPuzzleCommand(s));
  EXPECT_EQ(fileText(), record(1, kPuzzle, false));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Puzzle# 1 added to file: " + s.collection.CurrentFile});
  EXPECT_EQ(s.MesLab, "");
  // Read back, it is the unsolved puzzle with its 49 blanks.
  PuzzleRowsRead back = readPuzzleRows(s.collection.CurrentFile, 1);
  ASSERT_EQ(back.status, PuzzleRowsRead::Status::Found);
  std::string cells;
  for (const std::string& row : back.rows) cells += row;
  EXPECT_EQ(std::count(cells.begin(), cells.end(), '0'), 49);
}

TEST_F(SaveTest, ThisPuzzleAnsweredNoKeepsTheStatus) {
  for (int c = 1; c <= kCells; ++c) s.grid[c].value = kSolution[std::size_t(c - 1)] - '0';
  s.MesLab = "status";
  t.ui.answers.push_back(false);
  EXPECT_FALSE(saveThisPuzzleCommand(s));
  EXPECT_EQ(s.MesLab, "status");
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
}

// --- the batch

TEST_F(SaveTest, ABatchOfThreeIntoAnEmptyFile) {
  std::vector<std::string> shown, created;
  AutoSaveRequest request;
  request.NumCreate = "3";
  request.create = CreateSettings{"41", BlankDistribution::Mirror, std::nullopt};
  request.showNumCreate = [&](const std::string& text) {
    shown.push_back(text);
    created.push_back(givensText(s));
  };
  AutoSaveResult result = autoSaveCommand(s, request);

  EXPECT_EQ(result.saved, 3);
  EXPECT_FALSE(result.writeFailed);
  EXPECT_EQ(result.create.TotBlanks, "40");
  EXPECT_EQ(shown, (std::vector<std::string>{"2", "1", "0", "3"}));
  ASSERT_EQ(created.size(), 4u);
  EXPECT_EQ(fileText(), record(1, created[0], false) + record(2, created[1], true) + record(3, created[2], true));
  EXPECT_EQ(s.collection.TotalPuzzles, 3);
  EXPECT_EQ(s.PuzNumNow, "3");
  EXPECT_EQ(s.PuzzleTitle, "Puzzle 3 of 3 (40 blanks)");
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"3 puzzles added to file: " + s.collection.CurrentFile});
  EXPECT_TRUE(t.ui.questions.empty());
  // Each creation also went to PuzTemp.sud as #001.
  EXPECT_EQ(countPuzzles(t.tempFile()), 3);
}

TEST_F(SaveTest, ABatchGoesOnAfterAFailedCreationAndTellsTheCountAsked) {
  s.config.MaxTries = 5;
  AutoSaveRequest request;
  request.NumCreate = "2";
  request.create = CreateSettings{"30", BlankDistribution::Random, std::nullopt};
  AutoSaveResult result = autoSaveCommand(s, request);
  EXPECT_EQ(result.saved, 0);
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
  EXPECT_EQ(t.ui.messages,
            (std::vector<std::string>{"Tried 5 times, solution aborted", "Puzzle creation failed, please try again",
                                      "Tried 5 times, solution aborted", "Puzzle creation failed, please try again",
                                      "2 puzzles added to file: " + s.collection.CurrentFile}));
}

TEST_F(SaveTest, AManualFallbackIsToldOnceAndTheBatchGoesOnAtRandom) {
  AutoSaveRequest request;
  request.NumCreate = "2";
  request.create = CreateSettings{"25", BlankDistribution::Manual, std::nullopt};
  AutoSaveResult result = autoSaveCommand(s, request);
  EXPECT_EQ(result.saved, 2);
  EXPECT_EQ(result.create.distribution, BlankDistribution::Random);
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Random placement will be used",
                                                     "2 puzzles added to file: " + s.collection.CurrentFile}));
  EXPECT_EQ(s.PuzzleTitle, "Puzzle 2 of 2 (25 blanks)");
}

TEST_F(SaveTest, ABatchIntoAnUnwritableFileStopsAtTheFirstSave) {
  s.collection.CurrentFile = t.dir.file("missing/Mine.sud");
  std::vector<std::string> shown;
  AutoSaveRequest request;
  request.NumCreate = "3";
  request.create = CreateSettings{"30", BlankDistribution::Random, std::nullopt};
  request.showNumCreate = [&](const std::string& text) { shown.push_back(text); };
  AutoSaveResult result = autoSaveCommand(s, request);
  EXPECT_TRUE(result.writeFailed);
  EXPECT_EQ(result.saved, 0);
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Could not write file: " + s.collection.CurrentFile});
  EXPECT_EQ(shown, std::vector<std::string>{"3"});
  EXPECT_EQ(countPuzzles(t.tempFile()), 1);
}

}  // namespace
}  // namespace tessaly
