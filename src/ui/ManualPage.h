#pragma once
// The controls of the ManualSolve tab: the instructions, the choices of the
// selected cell (`CellChoice`), the row and column summaries (`PossibleInRow`,
// `PossibleInCol`), the move list (`LogManual`) with Undo and Clear, the
// player's notes (`NotesMode`, `FillNotes`, `CheckNotes`), the rule hints
// (`GetHint`, `Hints`), the cell hint (`CellHint`), the nudge (`Nudge`,
// `ApplyNudge`), the clock (`GameClock`), the pointer read-out and the
// explanation of a cell's choices.
//
// Every move goes through the page's Game, which records it for Undo and Redo
// and gives the coach's verdict; the verdict is shown as the last line of the
// hint list.
//
// The page owns the manual-play state and draws it; every decision is the
// core's. The window hands it the grid's clicks and keys while the tab is
// shown, paints the cells the page asks for through `PaintCell`, and runs the
// page's commands (ending a paused run first) and redraws through its
// CommandHost.

#include <QColor>
#include <QPoint>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "model/Event.h"
#include "play/Coach.h"
#include "ui/PlayMarks.h"
#include "ui/TabPage.h"

class QAction;
class QBoxLayout;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;

namespace tessaly {

class ColourScheme;
class Game;
class ManualPlay;

/// How manual play asks the window to draw a cell's value box.
enum class ManualPaint {
  Normal,        ///< its ordinary colours (the given colours for a given)
  Selected,      ///< the selected-cell back and fore colours
  Refused,       ///< red: a refused placement would leave this cell without choices
  BoxHighlight,  ///< a cell of a highlighted box (or row or column of an explanation)
  BoxNormal,     ///< a cell whose area highlight ended: ordinary colours again
};

/// The colours of a manual paint: the selected-cell pair (scheme colours 12
/// and 8), the box highlight (scheme colour 9 behind the ordinary text) and the
/// fixed red of a refused placement. Normal and BoxNormal give nothing: the
/// cell takes its ordinary colours.
struct ManualColours {
  QColor back;
  QColor text;  ///< invalid: keep the ordinary text colour
};
std::optional<ManualColours> manualPaintColours(ManualPaint paint, const ColourScheme& scheme);

class ManualPage : public TabPage {
  Q_OBJECT

 public:
  using PaintCell = std::function<void(int cell, ManualPaint paint)>;

  /// `paintCell` draws one value box as asked; the host runs the page's
  /// commands and redraws the window from the session.
  ManualPage(Session& session, CommandHost& host, PaintCell paintCell, QWidget* parent = nullptr);
  ~ManualPage() override;

  ManualPlay& play() { return *m_play; }
  /// The game in progress: notes, the undo stack, the coach.
  Game& game() { return *m_game; }
  /// How the page hands the window what to draw in the value cells beside
  /// their values (notes, nudge, shades); called at every redraw of the page.
  void setMarksPainter(std::function<void(const BoardPlayMarks&)> painter) { m_drawMarks = std::move(painter); }
  /// What the page last asked to be drawn in cell 1..81.
  const PlayMarks& marksOf(int cell) const { return m_marks.at(std::size_t(cell - 1)); }
  /// The last paint asked for a cell 1..81.
  ManualPaint paintOf(int cell) const { return m_paints.at(std::size_t(cell - 1)); }
  /// The drop-down of a cell's choices (`mnuChoices`, items `xc` 1..9).
  QMenu* choicesMenu() const { return m_choices; }

  /// Starts manual play afresh: the tab became current, or a puzzle was read
  /// while it is current (the session calls this itself then).
  void prepare();
  /// The tab was shown again: nothing selected, the moves kept.
  void pageShown() override;
  /// Redraws the page's controls from the manual-play state and the session.
  void refreshFromSession() override;
  void applyColours(const ColourScheme& scheme) override;

  // The grid's clicks and keys while the tab is shown.
  void valueBoxClicked(int cell, Qt::MouseButton) override { onCellClicked(cell); }
  void valueBoxDoubleClicked(int cell) override;
  void candidateLabelClicked(int cell, Qt::MouseButton button) override {
    if (button == Qt::LeftButton) onCandidateClicked(cell);
  }
  void candidateLabelHovered(int cell) override { onCandidateHovered(cell); }
  void boxFrameClicked(int box) override { onBoxFrameClicked(box); }
  void keyReleased(int key, Qt::KeyboardModifiers modifiers) override { onKeyReleased(key, modifiers); }

  /// What a Qt key asks of the selected cell: ManualPlay::kClear for Delete,
  /// 1..9 for the digits of the main keyboard or the numeric pad, else 0 (also
  /// for any key held with Ctrl, Alt or Meta).
  static int typedValue(int key, Qt::KeyboardModifiers modifiers);
  /// The note a key toggles held with Shift: 1..9 for a digit key (or the
  /// sign a US keyboard gives for it with Shift), else 0.
  static int noteDigit(int key, Qt::KeyboardModifiers modifiers);

  /// Notes mode: a digit key toggles a note of the selected cell instead of placing it.
  bool notesMode() const;
  void setNotesMode(bool on);
  /// Shows the clock of the game (`GameClock`).
  void setClockShown(bool shown);
  /// The clock's text for a number of seconds: "4:05", "1:02:03".
  static QString clockText(int seconds);

  // The Game's commands, as the buttons, keys and the Edit menu give them.
  /// Undo (Ctrl+Z) and Redo (Ctrl+Shift+Z, Ctrl+Y) of the Edit menu.
  void undo();
  void redo();
  /// Nudge (the H key): the next step, one level further each time.
  void nudge();
  /// Apply, offered by a nudge at level 4.
  void applyNudge();
  void fillInNotes();
  void checkNotes();
  /// One second of play went by: the game's clock advances while the tab is
  /// shown and the board is not full.
  void tick();
  /// The timer that calls tick once a second (tests stop it and tick themselves).
  void setClockRunning(bool running) { running ? m_clock.start() : m_clock.stop(); }

 signals:
  /// A command selected another cell (a click on the grid, the move list or a
  /// hint line, the cell hint, an arrow key), or a button of the notes or the
  /// nudge was used: the digits typed next are meant for the selected cell.
  void cellSelected(int cell);
  /// The game changed (a move, undo, redo): the Edit menu's Undo and Redo follow.
  void gameChanged();

 public slots:
  /// A click on value box `cell` 1..81.
  void onCellClicked(int cell);
  /// A double-click on value box `cell`: the drop-down of its choices pops up
  /// at `globalPos`.
  void onCellDoubleClicked(int cell, QPoint globalPos);
  /// A key released on the form: Delete, the digits 1..9, and the arrow keys,
  /// which move the selection to the neighbouring cell.
  void onKeyReleased(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// The pointer is over candidate label `cell`.
  void onCandidateHovered(int cell);
  /// A click on candidate label `cell`: explains its choices.
  void onCandidateClicked(int cell);
  /// A click on the frame of box 1..9.
  void onBoxFrameClicked(int box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The constructor's parts: the left column (choices of the selected cell,
  // row and column summaries, move list with Undo and Clear), the right column
  // (hint buttons and list, pointer read-out, explanation) and the drop-down.
  QBoxLayout* buildPlacingColumn();
  QBoxLayout* buildHintColumn();
  void buildChoicesMenu();

  class Painter;

  void paint(int cell, ManualPaint paint);
  void run(std::function<void()> command);
  void afterCommand();
  void moveSelection(int rowStep, int colStep);
  void endExplanationHighlight();
  /// Empties the explanation and the pointer read-out, then redraws.
  void clearReadOuts();
  void hintClicked(int row, Qt::MouseButton button);
  /// Runs a move through the game and shows its verdict.
  void move(std::function<std::optional<Verdict>()> change);
  /// The verdict as the last line of the hint list, after the hint report (an
  /// earlier verdict gives way to it).
  void showVerdict(const std::optional<Verdict>& verdict);
  /// Ends what a nudge or Check notes shows on the board.
  void endNudge();
  /// Works out what the value cells show beside their values and hands it to the window.
  void drawMarks();

  PaintCell m_paintCell;
  std::unique_ptr<Painter> m_painter;
  std::unique_ptr<ManualPlay> m_play;
  std::unique_ptr<Game> m_game;  ///< after m_play, so it goes first
  std::function<void(const BoardPlayMarks&)> m_drawMarks;
  BoardPlayMarks m_marks{};
  std::optional<Nudge> m_nudgeShown;  ///< the last nudge, until the board changes
  /// The cells of the step the last move's verdict names (1..81), until the
  /// board changes or a nudge or Check notes takes the board.
  std::vector<int> m_verdictPattern;
  std::vector<int> m_wrongNotes;      ///< the cells Check notes found, until the board changes
  QTimer m_clock;
  Event::Subscription m_puzzleLoaded;  ///< ends before the page goes
  std::array<ManualPaint, 81> m_paints{};
  /// The row, column and box highlighted by the explanation; all 0 when none.
  struct ExplainedAreas {
    int row = 0, col = 0, box = 0;
  };
  ExplainedAreas m_explained;
  std::vector<int> m_stepCells;  ///< the cells the Next step hint highlights
  int m_shownSelection = 0;  ///< the selected cell as last told by cellSelected

  QLabel* m_instructions = nullptr;
  QLabel* m_cellChoice = nullptr;
  std::array<QLabel*, 9> m_rows{};
  std::array<QLabel*, 9> m_cols{};
  QListWidget* m_log = nullptr;
  QPushButton* m_undo = nullptr;
  QPushButton* m_clear = nullptr;
  QPushButton* m_notesMode = nullptr;
  QPushButton* m_fillNotes = nullptr;
  QPushButton* m_checkNotes = nullptr;
  QPushButton* m_nudge = nullptr;
  QPushButton* m_apply = nullptr;
  QLabel* m_clockLabel = nullptr;
  std::array<QPushButton*, 7> m_hintButtons{};
  QPushButton* m_cellHint = nullptr;
  QPushButton* m_nextStep = nullptr;
  QListWidget* m_hints = nullptr;
  QLabel* m_pointer = nullptr;
  QListWidget* m_explanation = nullptr;
  QMenu* m_choices = nullptr;
  std::array<QAction*, 9> m_choiceItems{};
};

}  // namespace tessaly
