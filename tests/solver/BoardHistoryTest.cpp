// The board rebuilt at every line of whole solves agrees with what the line says.

#include <gtest/gtest.h>

#include <regex>

#include "solver/BoardHistory.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kPe96 = test::puzzleFile("pe96.sud");

TEST(BoardHistory, EveryLineSeesTheBoardItTellsAbout) {
  // "Remove D from choice T in ... cell X" (Rules 1 to 6) and "Set row R, col C, cell X to value V".
  const std::regex removal(R"(^Remove (?:(?:row|col|box) duplicate )?(\d+) from choice (\d+) in .*cell (\d+)$)");
  const std::regex setRow(R"(^Set row \d, col \d, cell (\d+) to value (\d))");
  struct Case { std::string file; int number; bool rulesOnly; };
  const Case cases[] = {{kPe96, 1, true}, {kPe96, 7, true}, {test::puzzleFile("top95.sud"), 2, false},
                        {test::puzzleFile("hardest.sud"), 1, false}, {test::kSingles, test::kDiabolical118, true},
                        {test::kSingles, test::kKaggleExpert525, false}};
  for (const auto& [file, number, rulesOnly] : cases) {
    SCOPED_TRACE(file + " " + std::to_string(number));
    test::TestSession t;
    Session& s = t.session;
    ASSERT_TRUE(readPuzzle(s, file, number));
    const std::string givens = s.grid.valueCode();
    SolverEngine(s).solveCommand();
    const int lines = s.log.TotalLines();
    ASSERT_EQ(s.run.history.lines(), lines);
    int removals = 0, placements = 0;
    for (int k = 1; k < lines; ++k) {
      const std::string text(s.log.text(k));
      const PuzzleGrid at = boardAtLine(s.run.history, k), next = boardAtLine(s.run.history, k + 1);
      std::smatch m;
      if (std::regex_match(text, m, removal)) {
        // The line names the cell's choices as they stand; right after it they are gone.
        const int cell = std::stoi(m[3]);
        CandidateSet after = CandidateSet::fromText(m[2].str());
        after.removeAll(CandidateSet::fromText(m[1].str()));
        EXPECT_EQ(at[cell].candidates.text(), m[2].str()) << k << ": " << text;
        EXPECT_EQ(next[cell].candidates, after) << k << ": " << text;
        ++removals;
      } else if (std::regex_search(text, m, setRow)) {
        // A placement already holds its value; Rule 5's reduction leaves the cell empty.
        const int cell = std::stoi(m[1]), value = std::stoi(m[2]);
        EXPECT_TRUE(at[cell].value == 0 || at[cell].value == value) << k << ": " << text;
        EXPECT_TRUE(next[cell].value == value || next[cell].candidates == CandidateSet::of(value)) << k << ": " << text;
        ++placements;
      }
    }
    EXPECT_GT(removals, 0);
    EXPECT_GT(placements, 0);
    // The read's last line sees the givens; a rules-only solve's last line the final grid.
    const PuzzleGrid read = boardAtLine(s.run.history, 6);
    EXPECT_EQ(std::string(s.log.text(6)), "Click Start to commence");
    EXPECT_EQ(read.valueCode(), givens);
    EXPECT_EQ(read.givensCount(), s.givenCount());
    if (rulesOnly) {
      EXPECT_EQ(boardAtLine(s.run.history, lines).valueCode(), s.grid.valueCode());
    }
  }
}

TEST(BoardHistory, GoesWithTheLogAndLinesNotRecordedSeeTheBoardBefore) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, kPe96, 1));
  const std::string givens = s.grid.valueCode();
  s.logEvent(kStyleNormal, "written past the solver");  // line 7: not recorded
  s.grid[1].value = 4;
  SolverEngine(s).writeLine(kStyleNormal, "recorded");  // line 8
  EXPECT_EQ(boardAtLine(s.run.history, 7).valueCode(), givens);
  EXPECT_EQ(boardAtLine(s.run.history, 8).valueCode(), "4" + givens.substr(1));
  EXPECT_EQ(boardAtLine(s.run.history, 0).valueCode(), std::string(81, '0'));
  s.clearEventLog();
  EXPECT_EQ(s.run.history.lines(), 0);
  EXPECT_TRUE(s.run.history.changes.empty());
}

}  // namespace
}  // namespace tessaly
