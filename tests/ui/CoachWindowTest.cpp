// The coach on the ManualSolve tab, through the real window: a game played by
// keyboard alone (notes, nudges, undo and redo), the coach's line after a
// move, the notes' buttons, what the board shows while playing, and the game
// kept between runs and in files.

#include "play/Game.h"
#include "play/GameFile.h"
#include "ui/ManualPage.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

std::uint16_t bit(int digit) { return std::uint16_t(1u << (digit - 1)); }

class CoachWindowTest : public WindowFixture {
 protected:
  ManualPage& page() const { return *window->manualPage(); }
  Game& game() const { return page().game(); }
  QWidget* grid() const { return child("Grid"); }
  /// Starts on puzzle n of pe96, on the ManualSolve tab with the keyboard on the grid.
  void play(int n) {
    start(n);
    page().setClockRunning(false);  // the tests tick the clock themselves
    selectTab(Tab::ManualSolve);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->board()->grid()->setFocus();
    QApplication::processEvents();
  }
  void key(int k, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(grid(), Qt::Key(k), modifiers); }
  /// Moves the selection to the cell with the arrow keys.
  void goTo(int cell) {
    if (page().play().selectedCell == 0) key(Qt::Key_Right);  // the first arrow selects cell 1
    const int from = page().play().selectedCell;
    const int rows = (cell - 1) / 9 - (from - 1) / 9, cols = (cell - 1) % 9 - (from - 1) % 9;
    for (int i = 0; i < std::abs(rows); ++i) key(rows > 0 ? Qt::Key_Down : Qt::Key_Up);
    for (int i = 0; i < std::abs(cols); ++i) key(cols > 0 ? Qt::Key_Right : Qt::Key_Left);
    ASSERT_EQ(page().play().selectedCell, cell);
  }
  void type(int cell, int digit, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    goTo(cell);
    key(Qt::Key_0 + digit, modifiers);
  }
  std::vector<std::string> hintList() const { return lines(child<QListWidget>("Hints")); }
  const HintLine& lastHint() const { return session.hints.back(); }
  std::string solution() const { return game().solution().digits; }
  int digitOf(int cell) const { return solution()[std::size_t(cell - 1)] - '0'; }
  std::vector<int> emptyCells() const {
    std::vector<int> cells;
    for (int c = 1; c <= kCells; ++c)
      if (!session.grid[c].value) cells.push_back(c);
    return cells;
  }
  /// A candidate of the cell that is not its solution.
  int wrongCandidate(int cell) const {
    for (int d = 1; d <= 9; ++d)
      if (session.grid[cell].candidates.has(d) && d != digitOf(cell)) return d;
    return 0;
  }
  /// What the board draws small in a value cell.
  std::string notesShown(int cell) const { return window->board()->valueCell(cell).notes.toStdString(); }
  /// The game as it stands: values, notes, move list and stack.
  struct Snapshot {
    Position position;
    std::vector<std::string> moves;
    std::size_t commands = 0, done = 0;
    Tab tab = Tab::AutoSolve;
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
  };
  Snapshot snapshot() const {
    return {game().position(), page().play().LogManual(), game().commands().size(), game().done(),
            session.controls.currentTab};
  }

  /// Solves the puzzle on the board by keyboard: notes with N and Shift+digit,
  /// a nudge to its last level and its Apply (Alt+Y), Undo and Redo by their
  /// keys, and every other value typed.
  void solveByKeyboard() {
    const std::vector<int> blanks = emptyCells();
    ASSERT_GE(blanks.size(), 3u);
    const int first = blanks[0], second = blanks[1];
    const int right = digitOf(first), wrong = wrongCandidate(first);
    ASSERT_NE(wrong, 0);

    // Notes mode: the digit keys write notes, drawn small in the cell.
    key(Qt::Key_N);
    EXPECT_TRUE(child<QPushButton>("NotesMode")->isChecked());
    type(first, right);
    type(first, wrong);
    EXPECT_EQ(game().notes()[std::size_t(first)], bit(right) | bit(wrong));
    EXPECT_EQ(notesShown(first), QString("%1%2").arg(std::min(right, wrong)).arg(std::max(right, wrong)).toStdString());
    EXPECT_EQ(session.grid[first].value, 0);
    // Taking the wrong note out gets the coach's word on it.
    key(Qt::Key_0 + wrong);
    EXPECT_EQ(game().notes()[std::size_t(first)], bit(right));
    ASSERT_FALSE(session.hints.empty());
    EXPECT_EQ(lastHint().kind, HintKind::Verdict);
    EXPECT_EQ(hintList().back(), lastHint().text);
    key(Qt::Key_N);
    EXPECT_FALSE(page().notesMode());
    // Shift+digit writes a note without the mode.
    type(second, digitOf(second), Qt::ShiftModifier);
    EXPECT_EQ(game().notes()[std::size_t(second)], bit(digitOf(second)));
    EXPECT_EQ(session.grid[second].value, 0);

    // The nudge, one level further at each H, up to the step's Apply.
    for (int level = 1; level <= kNudgeLevels; ++level) {
      key(Qt::Key_H);
      EXPECT_EQ(hintList().size(), std::size_t(level)) << level;
      EXPECT_EQ(child("ApplyNudge")->isEnabled(), level == kNudgeLevels) << level;
    }
    int shaded = 0;
    for (int c = 1; c <= kCells; ++c) shaded += page().marksOf(c).shade == PlayShade::NudgePattern;
    EXPECT_GT(shaded, 0);
    const std::size_t commands = game().commands().size();
    // Apply by its mnemonic, which clicks the button a moment later, as a button's mnemonic does.
    QTest::keyClick(window.get(), Qt::Key_Y, Qt::AltModifier);
    for (int wait = 0; wait < 100 && game().commands().size() == commands; ++wait) QTest::qWait(10);
    ASSERT_EQ(game().commands().size(), commands + 1);
    EXPECT_EQ(game().commands().back().kind, CommandKind::Apply);
    EXPECT_EQ(QApplication::focusWidget(), grid());  // the keys go on reaching the board

    // Every value typed; the first is taken back and made again by the keys.
    bool undone = false;
    for (int c : emptyCells()) {
      type(c, digitOf(c));
      ASSERT_EQ(session.grid[c].value, digitOf(c)) << c;
      if (std::exchange(undone, true)) continue;
      EXPECT_TRUE(action("mnuUndo")->isEnabled());
      EXPECT_FALSE(action("mnuRedo")->isEnabled());
      key(Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(session.grid[c].value, 0);
      EXPECT_TRUE(action("mnuRedo")->isEnabled());
      key(Qt::Key_Y, Qt::ControlModifier);
      EXPECT_EQ(session.grid[c].value, digitOf(c));
      key(Qt::Key_Z, Qt::ControlModifier);
      key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
      EXPECT_EQ(session.grid[c].value, digitOf(c));
    }
    EXPECT_EQ(blanksShown(), 0);
    EXPECT_EQ(ui.messages.back(), "Puzzle is solved");
  }
};

TEST_F(CoachWindowTest, TwoPuzzlesAreSolvedByKeyboardAlone) {
  play(1);
  ASSERT_NO_FATAL_FAILURE(solveByKeyboard());
  window->readPuzzleFile(appDir() + "Puzzles.sud", 7);
  EXPECT_FALSE(game().canUndo());  // another puzzle, another game
  ASSERT_NO_FATAL_FAILURE(solveByKeyboard());
  for (int c = 1; c <= kCells; ++c) EXPECT_EQ(session.grid[c].value, digitOf(c)) << c;
}

// Puzzle 1 of pe96: cell 1 has the choices 45 (solution 4), cell 2 4578 (8).
TEST_F(CoachWindowTest, TheCoachLineFollowsEachMoveInTheHintListAndNeverInTheLog) {
  play(1);
  click("GetHint_0");
  const std::vector<HintLine> report = session.hints;
  // A move the rules force now: the coach names the technique.
  const Position before = game().position();
  std::optional<Verdict> forced;
  for (int c : emptyCells()) {
    const Verdict v = judgePlacement(before, c, digitOf(c), game().solution(), {session.controls.techniques, false});
    if (v.kind == VerdictKind::Forced && c > 2) {
      forced = v;
      break;
    }
  }
  ASSERT_TRUE(forced);
  const Verdict right = *forced;
  type(right.cell, right.digit);
  EXPECT_TRUE(right.text.starts_with("Right: ")) << right.text;
  std::vector<HintLine> expected = report;
  expected.push_back(right.line());
  EXPECT_EQ(session.hints, expected);  // the hint's report stays, the verdict after it
  EXPECT_EQ(hintList().back(), right.text);
  // A wrong digit passes unseen while the option is off...
  type(2, 5);
  EXPECT_EQ(session.hints, report);
  key(Qt::Key_Z, Qt::ControlModifier);
  // ...and is called wrong once it is on.
  action("mnuTellWrongMoves")->trigger();
  type(2, 5);
  EXPECT_EQ(lastHint(), (HintLine{HintKind::Verdict, 2, 5, "This 5 is not in the solution"}));
  for (int n = 1; n <= session.log.TotalLines(); ++n) {
    EXPECT_NE(std::string(session.log.text(n)), right.text);
    EXPECT_NE(std::string(session.log.text(n)), lastHint().text);
  }
}

// Puzzle 1 of pe96: the 8 of cell 2 follows from a pointing pair (box 9 holds
// its 8s only in cells 62 and 80, in column 8); the board shows that pattern
// until the next change.
TEST_F(CoachWindowTest, TheBoardShowsThePatternTheVerdictNames) {
  play(1);
  const auto shaded = [&] {
    std::vector<int> cells;
    for (int c = 1; c <= kCells; ++c)
      if (page().marksOf(c).shade == PlayShade::NudgePattern) cells.push_back(c);
    return cells;
  };
  type(2, 8);
  EXPECT_EQ(lastHint().text, "Right: pointing on 8, then 8 can only go in cell 2 in row 1");
  EXPECT_EQ(shaded(), (std::vector<int>{62, 80}));
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(shaded(), std::vector<int>{});
}

// A key acts as it was pressed: Shift let go before the digit still notes.
// (A window system's own key events carry scan codes; Qt Test's do not.)
TEST_F(CoachWindowTest, AKeyActsAsItWasPressed) {
  play(1);
  goTo(2);
  const auto send = [&](QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QKeyEvent event(type, key, modifiers, 14, 0, 0, text);
    QApplication::sendEvent(grid(), &event);
  };
  send(QEvent::KeyPress, Qt::Key_Percent, Qt::ShiftModifier, "%");
  send(QEvent::KeyRelease, Qt::Key_5, Qt::NoModifier, "5");
  EXPECT_EQ(session.grid[2].value, 0);
  EXPECT_EQ(game().notes()[2], bit(5));
  // Released with no press seen (it went down elsewhere), as released.
  send(QEvent::KeyRelease, Qt::Key_8, Qt::NoModifier, "8");
  EXPECT_EQ(session.grid[2].value, 8);
}

TEST_F(CoachWindowTest, NotesAreFilledCheckedClearedByAPlacementAndKeptAcrossATabSwitch) {
  play(1);
  click("FillNotes");
  for (int c : emptyCells()) {
    EXPECT_EQ(notesShown(c), session.grid[c].candidates.text()) << c;
    EXPECT_EQ(window->board()->candidateCell(c).text.toStdString(), session.grid[c].candidates.text()) << c;
  }
  // The solution's note taken out of cell 2 (8 of 4578): Check notes marks it.
  type(2, 8, Qt::ShiftModifier);
  goTo(81);
  click("CheckNotes");
  const NotesCheck check = game().checkNotes();
  EXPECT_EQ(check.cells, std::vector<int>{2});
  EXPECT_EQ(hintList(), std::vector<std::string>{check.text});
  EXPECT_EQ(page().marksOf(2).shade, PlayShade::WrongNotes);
  EXPECT_NE(window->board()->valueCell(2).back, window->board()->valueCell(3).back);
  // A digit placed takes itself out of its row's, column's and box's notes.
  type(1, 4);
  EXPECT_EQ(page().marksOf(2).shade, PlayShade::None);
  for (int c = 2; c <= 9; ++c) EXPECT_FALSE(game().notes()[std::size_t(c)] & bit(4)) << c;
  EXPECT_EQ(notesShown(2), "57");
  // Off, the notes of the other cells stay.
  action("mnuClearNotesOnPlace")->trigger();
  const NoteGrid notes = game().notes();
  type(2, 8);
  ASSERT_EQ(session.grid[2].value, 8);
  EXPECT_EQ(game().notes()[2], 0);
  for (int c = 3; c <= kCells; ++c) EXPECT_EQ(game().notes()[std::size_t(c)], notes[std::size_t(c)]) << c;
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(game().notes(), notes);

  selectTab(Tab::AutoSolve);
  EXPECT_EQ(notesShown(2), "");  // the board of another tab shows no notes
  selectTab(Tab::ManualSolve);
  EXPECT_EQ(notesShown(2), "57");
}

TEST_F(CoachWindowTest, TheBoardShowsTheSelectedDigitRepeatsAndTheClock) {
  play(1);
  type(1, 4);
  for (int c = 1; c <= kCells; ++c)
    EXPECT_EQ(page().marksOf(c).shade == PlayShade::SameDigit, c != 1 && session.grid[c].value == 4) << c;
  // A digit that repeats one of its row is drawn in red at once.
  session.grid[2].value = 4;
  window->refreshFromSession();
  EXPECT_TRUE(page().marksOf(2).clash);
  EXPECT_EQ(window->board()->valueCell(2).fore, QColor(210, 0, 0));
  EXPECT_EQ(window->board()->valueCell(3).fore, window->board()->valueCell(4).fore);
  session.grid[2].value = 0;

  EXPECT_FALSE(child("GameClock")->isVisible());
  action("mnuShowClock")->trigger();
  EXPECT_TRUE(child("GameClock")->isVisible());
  game().elapsedSeconds = 65;
  page().tick();
  EXPECT_EQ(child<QLabel>("GameClock")->text(), "1:06");
  EXPECT_EQ(ManualPage::clockText(3723), "1:02:03");
}

TEST_F(CoachWindowTest, TheGameInProgressIsOfferedAtTheNextStart) {
  play(3);
  window->keepGameInProgress(true);
  click("FillNotes");
  const std::vector<int> blanks = emptyCells();
  type(blanks[0], digitOf(blanks[0]));
  type(blanks[1], digitOf(blanks[1]));
  key(Qt::Key_Z, Qt::ControlModifier);  // one to redo
  game().elapsedSeconds = 42;
  const Snapshot played = snapshot();
  const GameRecord kept = game().record();
  window->close();
  window.reset();
  ASSERT_TRUE(std::filesystem::is_regular_file(appDir() + "GameInProgress.tsg"));

  open();
  page().setClockRunning(false);
  window->readPuzzleFile(appDir() + "Puzzles.sud", 5);  // whatever the board holds meanwhile
  window->keepGameInProgress(true);
  ui.answers = {true};
  window->offerSavedGame();
  EXPECT_EQ(ui.questions.back(), "Resume the game of puzzle 3?");
  EXPECT_EQ(snapshot(), played);
  EXPECT_EQ(game().elapsedSeconds, 42);
  EXPECT_EQ(game().record().commands.size(), kept.commands.size());
  EXPECT_EQ(lines(child<QListWidget>("LogManual")), played.moves);
  EXPECT_EQ(notesShown(blanks[2]), session.grid[blanks[2]].candidates.text());
  EXPECT_TRUE(action("mnuRedo")->isEnabled());
  action("mnuRedo")->trigger();
  EXPECT_EQ(session.grid[blanks[1]].value, digitOf(blanks[1]));

  // A game solved leaves none to offer.
  for (int c : emptyCells()) type(c, digitOf(c));
  window->close();
  EXPECT_FALSE(std::filesystem::exists(appDir() + "GameInProgress.tsg"));
}

TEST_F(CoachWindowTest, GamesAreSavedAndOpenedAndABadFileChangesNothing) {
  play(2);
  const std::vector<int> blanks = emptyCells();
  type(blanks[0], digitOf(blanks[0]), Qt::ShiftModifier);
  type(blanks[1], digitOf(blanks[1]));
  const std::string path = appDir() + "saved.tsg";
  ui.files = {path};
  action("mnuSaveGame")->trigger();
  EXPECT_EQ(ui.fileRequests.back().mode, FileRequest::Mode::Save);
  const GameRead saved = readGameFile(path);
  ASSERT_TRUE(saved.record) << saved.problem;
  EXPECT_EQ(saved.record->commands.size(), 2u);

  // A damaged file and a foreign one: the core's message, and nothing changes.
  std::string damaged = readFile(path);
  damaged.replace(damaged.find("command place"), 13, "command plaice");
  writeFile(appDir() + "damaged.tsg", damaged);
  writeFile(appDir() + "foreign.tsg", "Puzzles of the week\n");
  selectTab(Tab::Create);
  const Snapshot before = snapshot();
  for (const char* name : {"damaged.tsg", "foreign.tsg"}) {
    const std::string file = appDir() + name;
    ui.files = {file};
    ui.messages.clear();
    action("mnuOpenGame")->trigger();
    EXPECT_EQ(ui.messages, std::vector<std::string>{readGameFile(file).problem}) << name;
    EXPECT_EQ(snapshot(), before) << name;
  }

  // The good one goes on where it was, on the ManualSolve tab.
  window->readPuzzleFile(appDir() + "Puzzles.sud", 9);
  ui.files = {path};
  action("mnuOpenGame")->trigger();
  EXPECT_EQ(session.controls.currentTab, Tab::ManualSolve);
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 2);
  EXPECT_EQ(session.grid[blanks[1]].value, digitOf(blanks[1]));
  EXPECT_EQ(game().notes()[std::size_t(blanks[0])], bit(digitOf(blanks[0])));
  EXPECT_EQ(game().done(), 2u);
}

}  // namespace
}  // namespace tessaly::testing
