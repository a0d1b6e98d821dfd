// Save new puzzle, Save this puzzle and the batch of created puzzles, into the current collection.

#include <gtest/gtest.h>

#include <filesystem>

#include "create/CreateTestSupport.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "solver/SolverEngine.h"
#include "solver/Narrator.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

// Project Euler grid 01 and its solution.
const std::string kPuzzle = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kSolution = "483921657967345821251876493548132976729564138136798245372689514814253769695417382";

std::string record(int number, const std::string& cells) {
  return (number > 1 ? "\r\n#" : "#") + std::to_string(number) + "\r\n" + test::gridRows(cells);
}

/// Values without the given mark, as solving leaves them.
void fillValues(Session& s, const std::string& cells) {
  for (int c = 1; c <= kCells; ++c) s.grid[c].value = cells[std::size_t(c - 1)] - '0';
}

class SaveTest : public ::testing::Test {
 protected:
  void SetUp() override { s.collection.CurrentFile = t.dir.file("Mine.sud"); }
  std::string fileText() const { return readWholeFile(s.collection.CurrentFile).value_or("<missing>"); }
  std::string added(const std::string& what) const { return what + " added to file: " + s.collection.CurrentFile; }
  /// A batch of `count` puzzles, the box showing `typed`.
  AutoSaveResult batch(long long count, const std::string& typed, std::optional<int> blanks,
                       BlankDistribution distribution) {
    const auto show = [this](const std::string& text) {
      shown.push_back(text);
      onGrid.push_back(givensText(s));
    };
    return autoSaveCommand(s, AutoSaveRequest{count, typed, CreateSettings{blanks, distribution, std::nullopt}, show});
  }
  AutoSaveResult batch(long long count, int blanks, BlankDistribution distribution) {
    return batch(count, std::to_string(count), blanks, distribution);
  }

  test::CreateSession t;
  Session& s = t.session;
  Lines shown;   // what the batch showed in the NumCreate box
  Lines onGrid;  // the puzzle on the grid at each of those moments
};

TEST(SaveRefusals, WriteNothingAndKeepTheStatus) {
  enum Grid { kEmpty, kGivens, kSolved };
  const Lines asked{"Save this puzzle?"}, unwritable{"Could not write file: "};
  // name, the grid the command finds, the command, the answer, the file unwritable, questions, messages
  const std::tuple<const char*, Grid, bool (*)(Session&), bool, bool, Lines, Lines> cases[] = {
      {"new on an empty grid", kEmpty, saveNewCommand, true, false, {}, {"Create a valid puzzle first"}},
      {"new answered No", kGivens, saveNewCommand, false, false, asked, {}},
      {"new unwritable", kGivens, saveNewCommand, true, true, asked, unwritable},
      {"this unsolved", kGivens, saveThisPuzzleCommand, true, false, {}, {"Solve this puzzle first before saving"}},
      {"this answered No", kSolved, saveThisPuzzleCommand, false, false, asked, {}},
      {"this unwritable", kSolved, saveThisPuzzleCommand, true, true, asked, unwritable}};
  for (const auto& [name, grid, command, answer, unwritable, questions, messages] : cases) {
    SCOPED_TRACE(name);
    test::CreateSession t;
    Session& s = t.session;
    s.collection.CurrentFile = t.dir.file(unwritable ? "missing/Mine.sud" : "Mine.sud");
    if (grid != kEmpty) test::loadGivens(s, kPuzzle);
    if (grid == kSolved) fillValues(s, kSolution);
    s.run.ended = {RunEnd::Kind::NoSolution, 0};
    s.collection.setOrigin(BoardOrigin::read(7, 9, 50));
    t.ui.answers.push_back(answer);
    EXPECT_FALSE(command(s));
    EXPECT_EQ(t.ui.questions, questions);
    EXPECT_EQ(t.ui.messages, unwritable ? Lines{messages[0] + s.collection.CurrentFile + " (No such file or directory)"} : messages);
    EXPECT_EQ(statusLine(s.run.ended) + "|" + puzzleTitle(s.collection.origin()),
              "There appears to be no possible solution to this puzzle.|Puzzle 7 of 9 (50 blanks)");
    EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
  }
}

TEST_F(SaveTest, OnlyTheGivensAreAppendedNumberedByTheirPositionInTheFile) {
  std::string twelve;
  for (int n = 1; n <= 12; ++n) twelve += record(n + 100, kPuzzle);
  twelve.erase(0, 2);  // no blank line before the first
  ASSERT_TRUE(writeFileAtomically(s.collection.CurrentFile, twelve));
  fillValues(s, kSolution);  // values without the given mark are blanks in the file
  ASSERT_TRUE(saveNewCommand(s));
  test::loadGivens(s, kPuzzle);
  ASSERT_TRUE(saveNewCommand(s));
  EXPECT_EQ(t.ui.questions, (Lines{"Save this puzzle?", "Save this puzzle?"}));
  EXPECT_EQ(t.ui.messages, (Lines{added("Puzzle# 13"), added("Puzzle# 14")}));
  EXPECT_TRUE(s.collection.TotalPuzzles == 14 && s.collection.CurrentPuzzleNumber == 14);
  EXPECT_EQ(puzzleNumberText(s.collection.origin()).value_or("") + " " + puzzleTitle(s.collection.origin()), "14 Puzzle 14 of 14 (49 blanks)");

  // A solved puzzle is saved as its givens, and the status is cleared.
  s.run.mode = RunState::NoPause;
  SolverEngine(s).solveAll();
  ASSERT_EQ(s.grid.valueCode(), kSolution);
  s.run.ended = {RunEnd::Kind::Solved, 0};
  ASSERT_TRUE(saveThisPuzzleCommand(s));
  EXPECT_EQ(fileText(), twelve + record(13, std::string(81, '.')) + record(14, kPuzzle) + record(15, kPuzzle));
  EXPECT_EQ(t.ui.messages.back(), added("Puzzle# 15"));
  EXPECT_EQ(statusLine(s.run.ended), "");
}

TEST_F(SaveTest, ABatchOfThreeIntoAnEmptyFile) {
  const AutoSaveResult result = batch(3, 41, BlankDistribution::Mirror);
  EXPECT_TRUE(result.saved == 3 && !result.writeFailed);
  EXPECT_TRUE(result.create.blanks == 40 && result.create.blanksRewritten);
  EXPECT_EQ(shown, (Lines{"2", "1", "0", "3"}));
  ASSERT_EQ(onGrid.size(), 4u);
  EXPECT_EQ(fileText(), record(1, onGrid[0]) + record(2, onGrid[1]) + record(3, onGrid[2]));
  EXPECT_EQ(s.collection.TotalPuzzles, 3);
  EXPECT_EQ(puzzleNumberText(s.collection.origin()).value_or("") + " " + puzzleTitle(s.collection.origin()), "3 Puzzle 3 of 3 (40 blanks)");
  EXPECT_EQ(t.ui.messages, Lines{added("3 puzzles")});
  EXPECT_TRUE(t.ui.questions.empty());
  EXPECT_EQ(countPuzzles(t.tempFile()), 3);  // each also went to PuzTemp.sud
}

TEST_F(SaveTest, ABatchIsNotHeldToTheAttemptLimitGoesOnPastAManualFallbackButStopsAtAnUnwritableFile) {
  s.config.MaxTries = 5;  // narrated solving's limit: the creations' silent fills pass it
  AutoSaveResult result = batch(2, 30, BlankDistribution::Random);
  EXPECT_TRUE(result.saved == 2 && countPuzzles(s.collection.CurrentFile) == 2);
  EXPECT_EQ(t.ui.messages, Lines{added("2 puzzles")});

  std::filesystem::remove(s.collection.CurrentFile);
  t.ui.messages.clear();
  result = batch(2, 25, BlankDistribution::Manual);  // no template: told once, then Random
  EXPECT_TRUE(result.saved == 2 && result.create.distribution == BlankDistribution::Random);
  EXPECT_EQ(t.ui.messages, (Lines{kTemplateNotAccepted, added("2 puzzles")}));
  EXPECT_EQ(puzzleTitle(s.collection.origin()), "Puzzle 2 of 2 (25 blanks)");

  s.collection.CurrentFile = t.dir.file("missing/Mine.sud");
  t.ui.messages.clear();
  shown.clear();
  result = batch(3, 30, BlankDistribution::Random);
  EXPECT_TRUE(result.writeFailed && result.saved == 0);
  EXPECT_EQ(t.ui.messages, Lines{"Could not write file: " + s.collection.CurrentFile + " (No such file or directory)"});
  EXPECT_EQ(shown, Lines{"3"});
  EXPECT_EQ(countPuzzles(t.tempFile()), 5);  // the four before and the one the write failed on
}

TEST_F(SaveTest, TheBatchTellsAndShowsTheCountAsTypedAndTitlesTheBlankCountAsked) {
  // count, as typed, blank count, saved, messages after the refusals, shown in the box, title
  const std::tuple<long long, const char*, std::optional<int>, int, int, Lines, const char*> cases[] = {
      {2, "02", 30, 2, 0, {"1", "0", "02"}, "Puzzle 2 of 2 (30 blanks)"},
      {0, "none", 30, 0, 0, {"none"}, "Puzzle 0 of 0 (30 blanks)"},
      {2, "2", std::nullopt, 0, 2, {"2"}, "Puzzle 0 of 0 (0 blanks)"},  // no number typed: refused, titled 0
      {1, "1", 80, 0, 1, {"1"}, "Puzzle 0 of 0 (80 blanks)"}};
  for (const auto& [count, typed, blanks, saved, refusals, inBox, title] : cases) {
    SCOPED_TRACE(typed);
    std::filesystem::remove(s.collection.CurrentFile);
    s.collection.TotalPuzzles = 0;
    t.ui.messages.clear();
    shown.clear();
    const AutoSaveResult result = batch(count, typed, blanks, BlankDistribution::Random);
    Lines messages(std::size_t(refusals), blanks ? kTooManyBlanks : kTooFewBlanks);
    messages.push_back(added(std::string(typed) + " puzzles"));
    EXPECT_EQ(result.saved, saved);
    EXPECT_EQ(t.ui.messages, messages);
    EXPECT_EQ(shown, inBox);
    EXPECT_EQ(puzzleTitle(s.collection.origin()), title);
  }
}

TEST_F(SaveTest, ABatchEndsOnAGradeOutOfReachWithItsOneMessage) {
  const auto show = [this](const std::string& text) { shown.push_back(text); };
  CreateSettings settings{20, BlankDistribution::Random, std::nullopt};
  settings.targetGrade = 5;
  settings.gradeTries = 2;
  const AutoSaveResult result = autoSaveCommand(s, AutoSaveRequest{5, "5", settings, show});
  EXPECT_TRUE(result.saved == 0 && result.gradeNotReached && !result.writeFailed);
  EXPECT_EQ(t.ui.messages, Lines{gradeNotReachedText(5, 2)});
  EXPECT_EQ(shown, Lines{"5"});
  EXPECT_EQ(fileLength(s.collection.CurrentFile), -1);
  EXPECT_EQ(fileLength(t.tempFile()), -1);
}

}  // namespace
}  // namespace tessaly
