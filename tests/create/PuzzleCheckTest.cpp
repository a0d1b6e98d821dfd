// What a puzzle is like before it is solved (solutions and grade, and the
// question a typed or pasted puzzle without one solution asks), and Paste
// puzzle: which texts it takes, what it tells of the others.

#include <gtest/gtest.h>

#include "create/EntryDialogs.h"
#include "create/PuzzleCheck.h"
#include "model/CollectionFile.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

// pe96 Grid 01, top95 puzzle 1, serg_benchmark line 1 (as tests/data/puzzles/verdicts.txt).
const std::string kUnique = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kTop95 = "4.....8.5.3..........7......2.....6.....8.4......1.......6.3.7.5..2.....1.4......";
const std::string kSeveral = "8.........95.......76.........426798...571243...893165......916....3.487....1.532";
// Row 1 leaves its last cell only the 9 that column 9 already holds.
const std::string kNone = "12345678.........9" + std::string(63, '.');

TEST(PuzzleVerdict, SolutionsGradeAndTheQuestionForEachKindOfPuzzle) {
  struct Case { std::string puzzle; int solutions, grade; const char *solutionsText, *gradeText, *question; };
  const Case cases[] = {
      {kUnique, 1, 1, "One solution", "Grade 1 \u00B7 Easy", ""},
      {kTop95, 1, 2, "One solution", "Grade 2 \u00B7 Moderate", ""},
      {kSeveral, 2, 5, "Several solutions", "Grade 5 \u00B7 Diabolical", kSeveralSolutionsQuestion},
      {kNone, 0, 0, "No solution", "", kNoSolutionQuestion},
      {test::replaced(kUnique, '.', '0'), 1, 1, "One solution", "Grade 1 \u00B7 Easy", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.puzzle);
    const PuzzleVerdict verdict = judgePuzzle(c.puzzle);
    EXPECT_EQ(verdict.solutions, c.solutions);
    EXPECT_EQ(verdict.grade, c.grade);
    EXPECT_EQ(solutionsCaption(verdict.solutions), c.solutionsText);
    EXPECT_EQ(gradeCaption(verdict.grade), c.gradeText);
    EXPECT_EQ(keepAnywayQuestion(c.puzzle), c.question);
  }
}

class PasteTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::loadGivens(t.session, kTop95);
    t.session.collection.setOrigin(BoardOrigin::read(1, 95, 64));
    t.session.collection.boardFromFile = true;
  }
  test::TestSession t;
};

TEST_F(PasteTest, ATextThatIsNotAPuzzleIsToldAndChangesNothing) {
  const std::string notPuzzle = kClipboardNotPuzzle;
  const std::pair<std::string, std::string> cases[] = {  // text, message
      {"", kClipboardEmpty},
      {" \r\n\t\n", kClipboardEmpty},
      {kUnique.substr(1), notPuzzle + "A puzzle on one line has 81 cells; this line has 80 characters."},
      {kUnique + "7", notPuzzle + "A puzzle on one line has 81 cells; this line has 82 characters."},
      {"x" + kUnique.substr(1),
       notPuzzle + "A puzzle line holds only the digits 1 to 9 and \".\", \"0\" or \"-\" for a blank."},
      {test::gridRows(kUnique, "\n").substr(10),
       notPuzzle + "A puzzle is one line of 81 cells or nine lines of nine cells; the text has 8 lines."},
      {"3" + kUnique.substr(1), notPuzzle + "Row 1 has duplicate numbers."},   // the 3 of row 1
      {"9" + kUnique.substr(1), notPuzzle + "Col 1 has duplicate numbers."},   // the 9 of row 2
      {".9" + kUnique.substr(2), notPuzzle + "Box 1 has duplicate numbers."},  // the 9 of row 2
  };
  const std::string before = t.session.grid.valueCode();
  for (const auto& [text, message] : cases) {
    t.ui.messages.clear();
    EXPECT_FALSE(pastePuzzle(t.session, text)) << text;
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{message}) << text;
    EXPECT_TRUE(t.ui.questions.empty());
    EXPECT_EQ(t.session.grid.valueCode(), before);
    EXPECT_EQ(puzzleTitle(t.session.collection.origin()), "Puzzle 1 of 95 (64 blanks)");
    EXPECT_TRUE(t.session.collection.boardFromFile);
  }
}

TEST_F(PasteTest, APuzzleInEitherFormBecomesTheNewPuzzleOnceKept) {
  struct Case { std::string text, givens; bool answer; const char* question; };  // answer: to a question asked
  const Case cases[] = {
      {kUnique, kUnique, false, ""},
      {"  " + test::replaced(kUnique, '.', '0') + "  # from a list\n", kUnique, false, ""},
      {test::replaced(kUnique, '.', '-'), kUnique, false, ""},
      {"\r\n" + test::gridRows(kUnique), kUnique, false, ""},
      {kSeveral, kSeveral, true, kSeveralSolutionsQuestion},
      {kNone, kNone, true, kNoSolutionQuestion},
      {kSeveral, kTop95, false, kSeveralSolutionsQuestion},  // "No": the board stays
  };
  for (const Case& c : cases) {
    SetUp();
    t.ui.messages.clear();
    t.ui.questions.clear();
    t.ui.answers = {c.answer};
    EXPECT_EQ(pastePuzzle(t.session, c.text), c.givens != kTop95) << c.text;
    EXPECT_EQ(givensText(t.session), c.givens) << c.text;
    EXPECT_EQ(t.ui.questions, *c.question ? std::vector<std::string>{c.question} : std::vector<std::string>{});
    EXPECT_TRUE(t.ui.messages.empty());
    if (c.givens == kTop95) continue;
    EXPECT_EQ(puzzleTitle(t.session.collection.origin()), kNewPuzzleTitle);
    EXPECT_FALSE(t.session.collection.boardFromFile);
    EXPECT_EQ(t.session.grid[9].candidates.empty(), c.givens == kNone) << "candidates computed";
  }
}

}  // namespace
}  // namespace tessaly
