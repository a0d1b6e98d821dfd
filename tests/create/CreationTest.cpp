// The Create command; whole seeded runs, the Manual template and its fallbacks are the cases cli/create-*.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "create/CreateTestSupport.h"
#include "create/Creation.h"
#include "model/FileUtil.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "solver/SolverEngine.h"

namespace tessaly {
namespace {

using test::blankCells;
using test::CreateSession;
using Lines = std::vector<std::string>;
using Views = std::vector<bool>;
using enum BlankDistribution;

CreateResult create(CreateSession& t, std::optional<int> blanks, BlankDistribution distribution) {
  return PuzzleCreator(t.session).createCommand(CreateSettings{blanks, distribution, std::nullopt});
}

bool completeAndValid(Session& s) { return s.grid.filledCount() == kCells && SolverEngine(s).givensAreValid(); }

TEST(CreateBlankCount, NineToSeventyTwoByTheLeadingNumberAnythingElseIsRefusedAndNothingChanges) {
  const std::string puzzle = "003020600900305001001806400008102900700000008006708200002609500800203009005010300";
  const std::tuple<const char*, std::optional<int>, int, const char*> cases[] = {  // typed, read, blanks made, refusal
      {"9", 9, 9, nullptr},           {"72", 72, 72, nullptr},         {" 30 blanks", 30, 30, nullptr},
      {"040", 40, 40, nullptr},       {"8", 8, 0, kTooFewBlanks},      {"73", 73, 0, kTooManyBlanks},
      {"abc", {}, 0, kTooFewBlanks},  {"", {}, 0, kTooFewBlanks},      {"-", {}, 0, kTooFewBlanks},
      {"-5", -1, 0, kTooFewBlanks},   {"+12", 12, 12, nullptr},       {"1000000", 1000, 0, kTooManyBlanks}};
  for (const auto& [typed, read, blanks, refusal] : cases) {
    SCOPED_TRACE(typed);
    EXPECT_EQ(typedBlanks(typed), read);
    CreateSession t;
    test::loadGivens(t.session, puzzle);
    t.session.collection.setOrigin(BoardOrigin::read(7, 9, 50));
    // Random leaves the box as typed; a refused Mirror must not rewrite it either.
    const CreateResult r = create(t, typedBlanks(typed), refusal ? Mirror : Random);
    EXPECT_TRUE(r.settings.blanks == read && !r.settings.blanksRewritten);
    EXPECT_EQ(r.outcome, refusal ? CreateResult::Outcome::Refused : CreateResult::Outcome::Created);
    EXPECT_EQ(t.ui.messages, refusal ? Lines{refusal} : Lines{});
    if (!refusal) {
      EXPECT_EQ(blankCells(t.session), blanks);
      continue;
    }
    // Nothing changed: the grid, the title, the run's flag, the views, PuzTemp.sud.
    EXPECT_TRUE(t.session.grid.valueCode() == puzzle && puzzleTitle(t.session.collection.origin()) == "Puzzle 7 of 9 (50 blanks)");
    EXPECT_TRUE(!t.session.run.CreationFlag && t.display.views.empty() && fileLength(t.tempFile()) == -1);
  }
}

TEST(CreateCompletion, ASilentRunFromEmptyRecordsCompletesAValidSudokuAroundTheSeeds) {
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    CreateSession t(seed);
    // Records of an earlier run: a stale guess level would be retried into the new grid.
    t.session.run.guessStack.push(GuessLevel{});
    t.session.run.candidateQueue.insert(QueueEntry{1, 1, 5, 2, CandidateSet::fromText("7")});
    SeededRandom twin(seed);  // the same draws: digit d goes to the drawn position of box d
    ASSERT_TRUE(PuzzleCreator(t.session).completeGrid());
    EXPECT_TRUE(t.session.run.CreationFlag && t.session.run.candidateQueue.empty());
    EXPECT_TRUE(t.session.run.mode == RunState::Silent && t.session.log.TotalLines() == 0);
    EXPECT_EQ(t.display.views, Views{false});
    EXPECT_TRUE(completeAndValid(t.session));
    for (int d = 1; d <= 9; ++d) {
      const Cell& seeded = t.session.grid[areaCells(AreaKind::Box, d)[std::size_t(drawOneTo(twin, 9) - 1)]];
      EXPECT_TRUE(seeded.value == d && seeded.given) << d;
    }
    EXPECT_TRUE(t.session.grid.givensCount() == 9 && t.ui.messages.empty());  // the solver marks nothing
  }
}

TEST(CreateLeftBehind, TheSilentFillIsNotHeldToTheAttemptLimitAnUnwritablePuzTempIsToldButThePuzzleStands) {
  // The attempt limit is narrated solving's: with a limit of one, every seed still makes its puzzle, untold.
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(seed);
    CreateSession t(seed);
    t.session.config.MaxTries = 1;
    CreateSettings settings{56, Mirror, std::nullopt};
    settings.uniqueOnly = true;
    EXPECT_TRUE(PuzzleCreator(t.session).createCommand(settings).created());
    EXPECT_EQ(t.ui.messages, Lines{});
    EXPECT_EQ(t.session.config.MaxTries, 1);
  }

  CreateSession u;
  u.session.appDir = u.dir.file("missing/");
  EXPECT_TRUE(create(u, 20, Random).created());
  EXPECT_EQ(u.ui.messages, Lines{"Could not write file: " + u.dir.file("missing/PuzTemp.sud") + " (No such file or directory)"});
  EXPECT_EQ(puzzleNumberText(u.session.collection.origin()).value_or(""), "NEW");
}

TEST(CreateDistribution, CountsAndPatternsOverTenSeedsEach) {
  // distribution, count asked, count shown afterwards, least and most blank cells
  const std::tuple<BlankDistribution, int, int, int, int> cases[] = {
      {Mirror, 41, 40, 40, 41}, {ByBox, 40, 36, 36, 36}, {Random, 23, 23, 23, 23}, {Random, 64, 64, 64, 64}};
  for (const auto& [distribution, asked, shown, least, most] : cases)
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
      SCOPED_TRACE(std::to_string(asked) + " seed " + std::to_string(seed));
      CreateSession t(seed);
      const CreateResult r = create(t, asked, distribution);
      ASSERT_TRUE(r.created());
      // Mirror and by Box write their count back into the box, even when it is the one asked for.
      EXPECT_TRUE(r.settings.blanks == shown && r.settings.blanksRewritten == (distribution != Random));
      EXPECT_EQ(r.settings.distribution, distribution);
      EXPECT_EQ(r.blanks, blankCells(t.session));
      EXPECT_TRUE(r.blanks >= least && r.blanks <= most) << r.blanks;
      const auto blank = [&](int cell) { return t.session.grid[cell].value == 0; };
      for (int cell = 1; cell <= kCells && distribution == Mirror; ++cell)  // point-symmetric pairs
        EXPECT_EQ(blank(cell), blank(kCells + 1 - cell)) << cell;
      for (int box = 1; box <= 9 && distribution == ByBox; ++box) {
        const AreaCells& cells = areaCells(AreaKind::Box, box);
        EXPECT_EQ(std::count_if(cells.begin(), cells.end(), blank), 4) << "box " << box;
      }
    }
}

TEST(CreateDistribution, MirrorsCentreCellCanTakeTheCountOneAboveTheTarget) {
  // Nine seed draws, then pairs at cells 1..19 (38 blanks), the centre (39) and
  // cell 20 with its partner (41): the target of 40 is passed by one.
  const auto drawFor = [](int k) { return (k - 0.5) / 9; };  // the uniform number that draws k of 1..9
  std::vector<double> draws(9, drawFor(1));
  for (int cell : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 41, 20})
    draws.insert(draws.end(), {drawFor(CellRow[cell]), drawFor(CellCol[cell])});
  CreateSession t(std::make_unique<ScriptedRandom>(draws));
  const CreateResult r = create(t, 41, Mirror);
  ASSERT_TRUE(r.created());
  EXPECT_EQ(std::to_string(r.settings.blanks.value_or(0)) + " " + puzzleTitle(t.session.collection.origin()), "40 New Puzzle (41 blanks)");
  for (int cell : {1, 19, 20, 41, 62, 63, 81}) EXPECT_EQ(t.session.grid[cell].value, 0) << cell;
  EXPECT_NE(t.session.grid[21].value, 0);
}

TEST(CreateNewPuzzle, KeptCellsBecomeGivensWithCandidatesForTheBlanksAndThePuzzleSolves) {
  CreateSession t(3);
  Session& s = t.session;
  s.run.stats.totalReductions[2] = 9;
  ASSERT_TRUE(create(t, 45, Random).created());
  EXPECT_TRUE(s.givenCount() == 36 && s.BlanksLeft == 45);
  for (int c = 1; c <= kCells; ++c) {
    // A given shows its digit; a blank keeps at least the completed grid's digit.
    const Cell& cell = s.grid[c];
    EXPECT_EQ(cell.given, cell.value != 0) << c;
    EXPECT_TRUE(cell.value ? cell.candidates == CandidateSet::of(cell.value) : !cell.candidates.empty()) << c;
  }
  EXPECT_EQ(puzzleNumberText(s.collection.origin()).value_or("") + " " + puzzleTitle(s.collection.origin()), "NEW New Puzzle (45 blanks)");
  EXPECT_EQ(s.run.activity, RunActivity::None);
  EXPECT_EQ(s.run.stats.totalReductions[2], 0);
  EXPECT_EQ(t.display.views, (Views{false, true}));
  s.run.PlacementCount = 0;
  s.run.mode = RunState::NoPause;
  SolverEngine(s).solveAll();
  EXPECT_TRUE(completeAndValid(s));
}

TEST(CreateWithAStoppedClock, TwoHundredMirrorCreationsInARowAllEnd) {
  // Draws taken within one clock tick must still differ, or the Mirror loop
  // would redraw the same pair for ever.
  const FixedClock stopped({12, 0, 0, 123456789});
  CreateSession t(std::make_unique<ClockMixedRandom>(stopped));
  PuzzleCreator creator(t.session);
  std::set<std::string> grids;
  for (int i = 0; i < 200; ++i) {
    const CreateResult r = creator.createCommand(CreateSettings{41, Mirror, std::nullopt});
    ASSERT_TRUE(r.created()) << i;
    grids.insert(t.session.grid.valueCode());
    EXPECT_TRUE(r.blanks == 40 || r.blanks == 41) << i << ": " << r.blanks;
  }
  EXPECT_EQ(t.ui.messages, Lines{});
  EXPECT_EQ(grids.size(), 200u);  // no two puzzles alike
}

std::string puzzleText(const Session& s) { return test::replaced(s.grid.valueCode(), '0', '.'); }

TEST(CreateOneSolution, EveryDistributionGivesBackBlanksUntilOneSolutionAndMirrorStaysSymmetric) {
  for (BlankDistribution distribution : {Mirror, ByBox, Random, Manual}) {
    for (std::uint64_t seed = 1; seed <= 12; ++seed) {
      SCOPED_TRACE(testing::Message() << int(distribution) << " seed " << seed);
      CreateSession t(seed);
      CreateSettings settings{64, distribution, std::string(40, 'X') + std::string(41, '.')};
      settings.uniqueOnly = true;
      const CreateResult result = PuzzleCreator(t.session).createCommand(settings);
      ASSERT_TRUE(result.created());
      const std::string puzzle = puzzleText(t.session);
      EXPECT_EQ(countSolutions(puzzle, 2), 1);
      EXPECT_EQ(result.blanks, std::count(puzzle.begin(), puzzle.end(), '.'));
      EXPECT_EQ(puzzleTitle(t.session.collection.origin()), "New Puzzle (" + std::to_string(result.blanks) + " blanks)");
      for (std::size_t i = 0; i < puzzle.size() && distribution == Mirror; ++i)
        EXPECT_EQ(puzzle[i] == '.', puzzle[80 - i] == '.') << i;
    }
  }
}

TEST(CreateOneSolution, OffByDefaultAndWhenOnOnlyFillsBlanksOfTheSamePuzzle) {
  CreateSession plain(7), unique(7);
  CreateSettings settings{40, Random, std::nullopt};
  PuzzleCreator(plain.session).createCommand(settings);
  settings.uniqueOnly = true;
  PuzzleCreator(unique.session).createCommand(settings);
  const std::string before = puzzleText(plain.session), after = puzzleText(unique.session);
  EXPECT_EQ(countSolutions(before, 2), 2);
  EXPECT_EQ(countSolutions(after, 2), 1);
  EXPECT_LT(std::count(after.begin(), after.end(), '.'), 40);
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_TRUE(before[i] == '.' || after[i] == before[i]) << i;
}

TEST(CreateGrade, RepeatsUntilTheGradeOrTellsThatItWasNotReached) {
  for (int grade = 1; grade <= kGradeCount; ++grade) {
    CreateSession t(3);
    CreateSettings settings{56, Random, std::nullopt};
    settings.uniqueOnly = true;
    settings.targetGrade = grade;
    const CreateResult result = PuzzleCreator(t.session).createCommand(settings);
    ASSERT_TRUE(result.created()) << grade;
    EXPECT_EQ(result.grade, grade);
    EXPECT_EQ(gradePuzzle(puzzleText(t.session)).grade, grade);
  }
  // Out of reach: told once, nothing saved, and the board, its title, its run and the views as they were.
  CreateSession t(3);
  Session& s = t.session;
  const std::string puzzle = "003020600900305001001806400008102900700000008006708200002609500800203009005010300";
  test::loadGivens(s, puzzle);
  SolverEngine(s).computeCandidates(false);
  s.collection.setOrigin(BoardOrigin::read(1, 50, 49));
  const int originChanges = s.collection.origin().changes;
  s.collection.boardFromFile = true;
  s.run.mode = RunState::Waiting;
  s.run.SavedGuessCount = 4;
  const PuzzleGrid grid = s.grid;
  CreateSettings settings{20, Manual, std::nullopt};  // no template: told once, then Random
  settings.targetGrade = 5;
  settings.gradeTries = 3;
  const CreateResult result = PuzzleCreator(s).createCommand(settings);
  EXPECT_EQ(result.outcome, CreateResult::Outcome::GradeNotReached);
  EXPECT_EQ(result.tries, 3);
  EXPECT_EQ(t.ui.messages, (Lines{kTemplateNotAccepted, "No puzzle of grade 5 (Diabolical) was made in 3 tries; "
                                                        "try other blanks or more tries"}));
  EXPECT_FALSE(std::filesystem::exists(t.tempFile()));
  EXPECT_EQ(s.grid.valueCode(), grid.valueCode());
  for (int c = 1; c <= kCells; ++c)
    EXPECT_TRUE(s.grid[c].given == grid[c].given && s.grid[c].candidates == grid[c].candidates) << c;
  EXPECT_EQ(puzzleTitle(s.collection.origin()) + " " + std::to_string(s.collection.origin().changes - originChanges),
            "Puzzle 1 of 50 (49 blanks) 0");
  EXPECT_TRUE(s.collection.boardFromFile && s.run.mode == RunState::Waiting && s.run.SavedGuessCount == 4);
  EXPECT_EQ(t.display.views, (Views{false, false, false, true}));  // hidden for each try, shown at the end
}

}  // namespace
}  // namespace tessaly
