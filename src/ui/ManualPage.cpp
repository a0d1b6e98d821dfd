#include "ui/ManualPage.h"

#include <QAction>
#include <QCursor>
#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

#include "model/GridTables.h"
#include "model/Session.h"
#include "play/Explanation.h"
#include "play/Game.h"
#include "play/Hints.h"
#include "play/NextStep.h"
#include "play/ManualPlay.h"
#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/FrameBox.h"
#include "ui/Metrics.h"
#include "ui/ObjectNames.h"
#include "ui/RightClickButton.h"
#include "ui/Shortcuts.h"
#include "ui/WidgetColours.h"

namespace tessaly {

namespace {

constexpr const char* kInstructions =
    "Place values in the grid manually:\n"
    "Left-click on a cell and enter a value, or\n"
    "Double-click on a cell and select a value from dropdown list";
constexpr std::array<const char*, 7> kHintCaptions = {"Rule &1", "Rule &2", "Rule &3", "Rule &4",
                                                      "Rule &5", "Rule &6", "&All rules"};
/// The hint buttons stand two a row, so the page stays narrow and leaves the
/// board its room; the column is shorter than the placing column beside it.
constexpr int kHintColumns = 2;
/// The fixed red of a refused placement (basic colour 4 of the 16-colour palette).
const QColor kRefusedRed(128, 0, 0);
/// Lines of a column summary: nine digits, one a line.
constexpr int kColumnLines = 9;

QString qt(const std::string& text) { return QString::fromStdString(text); }

bool isCell(int cell) { return cell >= 1 && cell <= kCells; }

/// Rewrites a list only when its lines changed, so a click on it keeps its place.
void showLines(QListWidget* list, const std::vector<std::string>& lines) {
  bool same = list->count() == int(lines.size());
  for (int i = 0; same && i < list->count(); ++i) same = list->item(i)->text() == qt(lines[std::size_t(i)]);
  if (same) return;
  list->clear();
  for (const std::string& line : lines) list->addItem(qt(line));
}

}  // namespace

std::optional<ManualColours> manualPaintColours(ManualPaint paint, const ColourScheme& scheme) {
  switch (paint) {
    case ManualPaint::Selected: return ManualColours{qcolor(scheme.colour[12]), qcolor(scheme.colour[8])};
    case ManualPaint::Refused: return ManualColours{kRefusedRed, qcolor(scheme.colour[8])};
    case ManualPaint::BoxHighlight: return ManualColours{qcolor(scheme.colour[9]), QColor()};
    case ManualPaint::Normal:
    case ManualPaint::BoxNormal: break;
  }
  return std::nullopt;
}

// --- the core's drawing requests, turned into paints of the window

class ManualPage::Painter : public ManualDisplay {
 public:
  explicit Painter(ManualPage& page) : m_page(page) {}
  void paintSelected(int cell) override { m_page.paint(cell, ManualPaint::Selected); }
  void paintNormal(int cell) override { m_page.paint(cell, ManualPaint::Normal); }
  void paintRefused(int cell) override { m_page.paint(cell, ManualPaint::Refused); }
  void highlightBox(int box) override {
    for (int cell : areaCells(AreaKind::Box, box)) m_page.paint(cell, ManualPaint::BoxHighlight);
  }
  void unhighlightBox(int box) override {
    for (int cell : areaCells(AreaKind::Box, box)) m_page.paint(cell, ManualPaint::BoxNormal);
  }
  void repaint() override { m_page.afterCommand(); }

 private:
  ManualPage& m_page;
};

ManualPage::ManualPage(Session& session, CommandHost& host, PaintCell paintCell, QWidget* parent)
    : TabPage(session, host, parent),
      m_paintCell(std::move(paintCell)),
      m_painter(std::make_unique<Painter>(*this)),
      m_play(std::make_unique<ManualPlay>(session, m_painter.get())),
      m_game(std::make_unique<Game>(*m_play)) {
  setObjectName(names::ManualPage);
  m_paints.fill(ManualPaint::Normal);
  // A puzzle read while the tab is current starts manual play afresh, and the
  // page shows it.
  m_puzzleLoaded = m_session.puzzleLoaded.subscribe([this] {
    // What a nudge or Check notes showed belongs to the puzzle that went.
    endNudge();
    emit gameChanged();
    if (m_play->active()) return prepare();
    // Read while another tab is shown: nothing painted for the earlier puzzle stays.
    endExplanationHighlight();
    for (int cell = 1; cell <= kCells; ++cell)
      if (paintOf(cell) != ManualPaint::Normal) paint(cell, ManualPaint::Normal);
  });

  buildChoicesMenu();
  // Left: placing by hand. Right: hints and explanations.
  auto* columns = new QHBoxLayout;
  columns->addLayout(buildPlacingColumn());
  columns->addLayout(buildHintColumn(), 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(columns);
  layout->addStretch();
  // The game's clock: one tick a second, counted while the player plays.
  m_clock.setInterval(1000);
  connect(&m_clock, &QTimer::timeout, this, [this] { tick(); });
  m_clock.start();
  refreshFromSession();
}

void ManualPage::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }

void ManualPage::valueBoxDoubleClicked(int cell) { onCellDoubleClicked(cell, QCursor::pos()); }

QBoxLayout* ManualPage::buildPlacingColumn() {
  const QFont fixed = fixedFont();
  m_instructions = new QLabel(kInstructions, this);
  m_instructions->setObjectName(names::ManualInstructions);
  m_instructions->setWordWrap(true);
  reserveLines(m_instructions, 4);

  auto* choiceCaption = new QLabel("Choices for the selected cell:", this);
  m_cellChoice = new QLabel(this);
  m_cellChoice->setObjectName(names::CellChoice);
  m_cellChoice->setFont(fixed);
  m_cellChoice->setMinimumWidth(QFontMetrics(fixed).horizontalAdvance("123456789") + 8);
  m_cellChoice->setFrameShape(QFrame::Panel);
  m_cellChoice->setFrameShadow(QFrame::Sunken);

  // The row summaries stand one a line; the column summaries are narrow, so
  // that their digits (each followed by two blanks) wrap one a line under the
  // column number.
  auto* rowFrame = new FrameBox("Possible in rows", this);
  rowFrame->setObjectName(names::PossibleInRowFrame);
  auto* rowLayout = new QGridLayout(rowFrame);
  auto* colFrame = new FrameBox("Possible in columns", this);
  colFrame->setObjectName(names::PossibleInColFrame);
  auto* colLayout = new QGridLayout(colFrame);
  const QFontMetrics metrics(fixed);
  // Nine narrow columns close together keep the frame no wider than the rows'.
  colLayout->setHorizontalSpacing(metrics.horizontalAdvance('0') / 2);
  rowLayout->setHorizontalSpacing(metrics.horizontalAdvance('0'));
  for (int n = 1; n <= 9; ++n) {
    auto* rowNumber = new QLabel(QString::number(n), rowFrame);
    auto* row = new QLabel(rowFrame);
    row->setObjectName(QString(names::PossibleInRow_N).arg(n));
    row->setFont(fixed);
    row->setMinimumWidth(metrics.horizontalAdvance("123456789"));
    rowLayout->addWidget(rowNumber, n - 1, 0);
    rowLayout->addWidget(row, n - 1, 1);
    m_rows[std::size_t(n - 1)] = row;

    auto* colNumber = new QLabel(QString::number(n), colFrame);
    colNumber->setAlignment(Qt::AlignHCenter);
    auto* col = new QLabel(colFrame);
    col->setObjectName(QString(names::PossibleInCol_N).arg(n));
    col->setFont(fixed);
    col->setWordWrap(true);
    col->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    col->setFixedWidth(metrics.horizontalAdvance("00"));
    col->setMinimumHeight(metrics.lineSpacing() * kColumnLines);
    colLayout->addWidget(colNumber, 0, n - 1);
    colLayout->addWidget(col, 1, n - 1);
    m_cols[std::size_t(n - 1)] = col;
  }

  m_log = new QListWidget(this);
  m_log->setObjectName(names::LogManual);
  m_log->setFont(fixed);
  m_log->setToolTip("Click a placement to select its cell");
  m_log->installEventFilter(this);
  m_log->setAccessibleName("Moves");
  m_undo = new QPushButton("Undo", this);
  m_undo->setObjectName(names::UndoManual);
  m_undo->setToolTip("Take the last placement back");
  m_clear = new QPushButton("Clear", this);
  m_clear->setObjectName(names::ClearManual);
  m_clear->setToolTip("Discard all placements and start the puzzle again");

  // The player's notes: a mode for the digit keys, and two buttons.
  m_notesMode = new QPushButton("&Notes", this);
  m_notesMode->setObjectName(names::NotesMode);
  m_notesMode->setCheckable(true);
  m_notesMode->setToolTip(toolTipWithKeys("Digit keys toggle notes of the selected cell instead of placing values "
                                          "(Shift+digit toggles a note at any time)",
                                          m_notesMode->text(), QKeySequence(Qt::Key_N)));
  m_fillNotes = new QPushButton("F&ill in notes", this);
  m_fillNotes->setObjectName(names::FillNotes);
  m_fillNotes->setToolTip(toolTipWithKeys("Write every empty cell's choices into its notes", m_fillNotes->text(), {}));
  m_checkNotes = new QPushButton("Chec&k notes", this);
  m_checkNotes->setObjectName(names::CheckNotes);
  m_checkNotes->setToolTip(toolTipWithKeys("Mark in red the cells whose notes have lost their solution digit",
                                           m_checkNotes->text(), {}));
  m_clockLabel = new QLabel(this);
  m_clockLabel->setObjectName(names::GameClock);
  m_clockLabel->setToolTip("The time played on this puzzle");
  m_clockLabel->setFont(fixed);
  m_clockLabel->hide();

  auto* choiceLine = new QHBoxLayout;
  choiceLine->addWidget(choiceCaption);
  choiceLine->addWidget(m_cellChoice);
  choiceLine->addStretch();
  choiceLine->addWidget(m_clockLabel);
  auto* summaries = new QHBoxLayout;
  summaries->addWidget(rowFrame);
  summaries->addWidget(colFrame);
  auto* logButtons = new QHBoxLayout;
  logButtons->addWidget(m_undo);
  logButtons->addWidget(m_clear);
  auto* left = new QVBoxLayout;
  left->addWidget(m_instructions);
  left->addLayout(choiceLine);
  left->addLayout(summaries);
  left->addWidget(m_log, 1);
  left->addLayout(logButtons);
  auto* noteButtons = new QHBoxLayout;
  noteButtons->addWidget(m_notesMode);
  noteButtons->addWidget(m_fillNotes);
  noteButtons->addWidget(m_checkNotes);
  left->addLayout(noteButtons);
  // After these buttons the grid has the keyboard again: the next digit is
  // meant for the selected cell.
  connect(m_fillNotes, &QPushButton::clicked, this, [this] {
    fillInNotes();
    emit cellSelected(m_play->selectedCell);
  });
  connect(m_checkNotes, &QPushButton::clicked, this, [this] {
    checkNotes();
    emit cellSelected(m_play->selectedCell);
  });
  connect(m_notesMode, &QPushButton::clicked, this, [this] { emit cellSelected(m_play->selectedCell); });
  connect(m_log, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int index = m_log->row(item);
    m_play->moveListClicked(index);
    afterCommand();
  });
  connect(m_undo, &QPushButton::clicked, this, [this] {
    move([this] {
      m_game->undoButton();
      return std::optional<Verdict>();
    });
  });
  connect(m_clear, &QPushButton::clicked, this, [this] { run([this] { m_host.puzzleRead(m_play->clearManual()); }); });
  return left;
}

QBoxLayout* ManualPage::buildHintColumn() {
  auto* hintFrame = new FrameBox("Hints", this);
  hintFrame->setObjectName(names::HintFrame);
  auto* hintButtons = new QGridLayout;
  for (int k = 0; k < int(m_hintButtons.size()); ++k) {
    auto* button = new QPushButton(kHintCaptions[std::size_t(k)], hintFrame);
    button->setObjectName(QString(names::GetHint_N).arg(k));
    // Ctrl+1 to Ctrl+6 for the rules, Ctrl+7 for all of them.
    addShortcut(button, QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + k)),
                k == kAllRulesHint ? "What Rules 1 to 6 deduce from the grid as it stands"
                                   : QString("What Rule %1 deduces from the grid as it stands").arg(k + 1));
    hintButtons->addWidget(button, k / kHintColumns, k % kHintColumns);
    connect(button, &QPushButton::clicked, this, [this, k] {
      run([this, k] { runRuleHint(m_session, k, m_play.get()); });
      m_hints->scrollToTop();
    });
    m_hintButtons[std::size_t(k)] = button;
  }
  m_cellHint = new QPushButton("&Cell hint", hintFrame);
  m_cellHint->setObjectName(names::CellHint);
  addShortcut(m_cellHint, QKeySequence(Qt::CTRL | Qt::Key_H), "Select the cell with the fewest choices");
  constexpr int kCellHintPlace = kAllRulesHint + 1, kNextStepPlace = kAllRulesHint + 2;
  hintButtons->addWidget(m_cellHint, kCellHintPlace / kHintColumns, kCellHintPlace % kHintColumns);
  m_nextStep = new QPushButton("Next ste&p", hintFrame);
  m_nextStep->setObjectName(names::NextStep);
  m_nextStep->setToolTip("The easiest step the techniques turned on find, its cells highlighted on the board");
  hintButtons->addWidget(m_nextStep, kNextStepPlace / kHintColumns, kNextStepPlace % kHintColumns);
  m_nudge = new QPushButton("Nu&dge", hintFrame);
  m_nudge->setObjectName(names::Nudge);
  m_nudge->setToolTip(toolTipWithKeys("The next step a little at a time: asked again for the same step, its "
                                      "technique, then where to look, its cells, and what it changes",
                                      m_nudge->text(), QKeySequence(Qt::Key_H)));
  constexpr int kNudgePlace = kNextStepPlace + 1, kApplyPlace = kNextStepPlace + 2;
  hintButtons->addWidget(m_nudge, kNudgePlace / kHintColumns, kNudgePlace % kHintColumns);
  m_apply = new QPushButton("Appl&y", hintFrame);
  m_apply->setObjectName(names::ApplyNudge);
  m_apply->setToolTip(toolTipWithKeys("Make the change the nudge shows on the board", m_apply->text(), {}));
  m_apply->setEnabled(false);
  hintButtons->addWidget(m_apply, kApplyPlace / kHintColumns, kApplyPlace % kHintColumns);
  connect(m_nudge, &QPushButton::clicked, this, [this] {
    nudge();
    emit cellSelected(m_play->selectedCell);
  });
  connect(m_apply, &QPushButton::clicked, this, [this] {
    applyNudge();
    emit cellSelected(m_play->selectedCell);
  });
  // A style may give every button a width of its own liking (Fusion: 80
  // pixels); these take the room of their captions, which keeps the page narrow.
  for (QPushButton* button : hintFrame->findChildren<QPushButton*>()) {
    const int margins = 2 * (button->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button) +
                             button->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, button));
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(QString(button->text()).remove('&')) + margins);
  }
  m_hints = new QListWidget(hintFrame);
  m_hints->setObjectName(names::Hints);
  m_hints->setToolTip("Click a Row= line to select its cell; right-click it to place its value");
  m_hints->viewport()->installEventFilter(this);
  m_hints->installEventFilter(this);
  m_hints->setAccessibleName("Hints");
  auto* hintLayout = new QVBoxLayout(hintFrame);
  hintLayout->addLayout(hintButtons);
  hintLayout->addWidget(m_hints, 1);

  connect(m_cellHint, &QPushButton::clicked, this, [this] {
    endExplanationHighlight();
    run([this] { cellHint(m_session, m_play.get()); });
  });
  connect(m_nextStep, &QPushButton::clicked, this, [this] {
    endExplanationHighlight();
    const NextStepHint hint = nextStepHint(m_session);
    m_session.hints = hint.lines;
    if (hint.step) m_stepCells = patternCells(*hint.step);
    for (int cell : m_stepCells) paint(cell, ManualPaint::BoxHighlight);
    m_host.refreshFromSession();
    m_hints->scrollToTop();
  });

  m_pointer = new QLabel(this);
  m_pointer->setObjectName(names::PointerReadout);
  // Long read-outs wrap rather than widen the window.
  m_pointer->setWordWrap(true);
  m_pointer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  reserveLines(m_pointer, 2);
  m_explanation = new QListWidget(this);
  m_explanation->setObjectName(names::Explanation);
  m_explanation->setToolTip("Click a cell's choices to see how they were found");
  m_explanation->setWordWrap(true);
  m_explanation->setAccessibleName("Explanation");

  // The hints over the explanation, across a splitter the user can move.
  auto* explained = new QWidget(this);
  auto* explainedLayout = new QVBoxLayout(explained);
  explainedLayout->setContentsMargins(0, 0, 0, 0);
  explainedLayout->addWidget(m_pointer);
  explainedLayout->addWidget(m_explanation, 1);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->setObjectName(names::HintSplitter);
  splitter->setChildrenCollapsible(false);
  splitter->addWidget(hintFrame);
  splitter->addWidget(explained);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 1);
  auto* right = new QVBoxLayout;
  right->addWidget(splitter);
  return right;
}

void ManualPage::buildChoicesMenu() {
  m_choices = new QMenu(this);
  m_choices->setObjectName(names::mnuChoices);
  for (int d = 1; d <= 9; ++d) {
    QAction* item = m_choices->addAction(QString::number(d));
    item->setObjectName(QString(names::xc_N).arg(d));
    connect(item, &QAction::triggered, this, [this, d] { move([this, d] { return m_game->chooseDropDown(d); }); });
    m_choiceItems[std::size_t(d - 1)] = item;
  }
}

ManualPage::~ManualPage() {
  // The game and the manual-play state go first: they unhook themselves from
  // the session and may still draw through the painter.
  m_game.reset();
  m_play.reset();
}

int ManualPage::typedValue(int key, Qt::KeyboardModifiers modifiers) {
  // A key held with Ctrl, Alt or Meta belongs to a shortcut, not to the grid.
  if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return 0;
  if (key == Qt::Key_Delete) return ManualPlay::kClear;
  // The digits of the numeric pad count as well as those of the main keyboard.
  if (key >= Qt::Key_1 && key <= Qt::Key_9) return 1 + (key - Qt::Key_1);
  return 0;
}

int ManualPage::noteDigit(int key, Qt::KeyboardModifiers modifiers) {
  if (!(modifiers & Qt::ShiftModifier) || (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
    return 0;
  if (key >= Qt::Key_1 && key <= Qt::Key_9) return 1 + (key - Qt::Key_1);
  // With Shift, a keyboard reports the sign on the digit's key. The board tells
  // such a key as its digit where it can read the key's place on the row
  // (BoardView::boardKey); elsewhere, these are a US keyboard's signs.
  static constexpr std::array<int, 9> kShifted = {Qt::Key_Exclam,     Qt::Key_At,        Qt::Key_NumberSign,
                                                  Qt::Key_Dollar,     Qt::Key_Percent,   Qt::Key_AsciiCircum,
                                                  Qt::Key_Ampersand,  Qt::Key_Asterisk,  Qt::Key_ParenLeft};
  const auto found = std::find(kShifted.begin(), kShifted.end(), key);
  return found == kShifted.end() ? 0 : int(found - kShifted.begin()) + 1;
}

bool ManualPage::notesMode() const { return m_notesMode->isChecked(); }

void ManualPage::setNotesMode(bool on) { m_notesMode->setChecked(on); }

void ManualPage::setClockShown(bool shown) {
  m_clockLabel->setVisible(shown);
  refreshFromSession();
}

QString ManualPage::clockText(int seconds) {
  seconds = std::max(0, seconds);
  const int h = seconds / 3600, m = seconds / 60 % 60, s = seconds % 60;
  return h ? QString("%1:%2:%3").arg(h).arg(m, 2, 10, QChar('0')).arg(s, 2, 10, QChar('0'))
           : QString("%1:%2").arg(m).arg(s, 2, 10, QChar('0'));
}

void ManualPage::tick() {
  if (!m_play->active() || !isVisible() || m_session.grid.filledCount() == kCells || m_session.givenCount() == 0)
    return;
  ++m_game->elapsedSeconds;
  m_clockLabel->setText(clockText(m_game->elapsedSeconds));
}

void ManualPage::paint(int cell, ManualPaint paint) {
  if (!isCell(cell)) return;
  m_paints[std::size_t(cell - 1)] = paint;
  if (m_paintCell) m_paintCell(cell, paint);
}

void ManualPage::run(std::function<void()> command) {
  auto whole = [this, command = std::move(command)] {
    command();
    afterCommand();
  };
  m_host.runCommand(std::move(whole));
}

void ManualPage::move(std::function<std::optional<Verdict>()> change) {
  run([this, change = std::move(change)] {
    const std::size_t done = m_game->done();
    const std::optional<Verdict> verdict = change();
    // A move made: what was shown for the board before it is over.
    if (m_game->done() != done) {
      endNudge();
      showVerdict(verdict);
    }
    emit gameChanged();
  });
}

void ManualPage::showVerdict(const std::optional<Verdict>& verdict) {
  std::vector<HintLine>& hints = m_session.hints;
  std::erase_if(hints, [](const HintLine& line) { return line.kind == HintKind::Verdict; });
  if (verdict) hints.push_back(verdict->line());
  // The board shows which instance the verdict means: any on the board counts,
  // not only the one Nudge would show.
  m_verdictPattern = verdict && verdict->step ? tellStep(*verdict->step, 3).pattern : std::vector<int>{};
}

void ManualPage::endNudge() {
  m_nudgeShown.reset();
  m_wrongNotes.clear();
  m_verdictPattern.clear();
}

void ManualPage::undo() {
  run([this] {
    if (m_game->undo()) {
      endNudge();
      showVerdict(std::nullopt);
    }
    emit gameChanged();
  });
}

void ManualPage::redo() {
  run([this] {
    if (m_game->redo()) {
      endNudge();
      showVerdict(std::nullopt);
    }
    emit gameChanged();
  });
}

void ManualPage::nudge() {
  endExplanationHighlight();
  run([this] {
    const Nudge nudge = m_game->nudge();
    std::vector<HintLine> lines;
    for (const std::string& line : nudge.lines.empty() ? std::vector<std::string>{nudge.text} : nudge.lines)
      lines.push_back({HintKind::Heading, 0, 0, line});
    m_session.hints = std::move(lines);
    m_wrongNotes.clear();
    m_verdictPattern.clear();
    m_nudgeShown = nudge;
  });
  m_hints->scrollToBottom();
}

void ManualPage::applyNudge() {
  move([this] {
    m_game->apply();
    return std::optional<Verdict>();
  });
}

void ManualPage::fillInNotes() {
  move([this] {
    m_game->fillInNotes();
    return std::optional<Verdict>();
  });
}

void ManualPage::checkNotes() {
  run([this] {
    const NotesCheck check = m_game->checkNotes();
    m_nudgeShown.reset();
    m_verdictPattern.clear();
    m_wrongNotes = check.cells;
    m_session.hints = {{HintKind::Heading, 0, 0, check.text}};
  });
}

void ManualPage::drawMarks() {
  BoardPlayMarks marks{};
  if (m_play->active()) {
    const PuzzleGrid& grid = m_session.grid;
    const NoteGrid& notes = m_game->notes();
    const std::array<bool, 82> repeated = repeatedValues(grid);
    const int selected = m_play->selectedCell;
    const int digit = isCell(selected) ? grid[selected].value : 0;
    for (int c = 1; c <= kCells; ++c) {
      PlayMarks& m = marks[std::size_t(c - 1)];
      m.notes = notes[std::size_t(c)];
      m.clash = repeated[std::size_t(c)];
      if (digit && c != selected && grid[c].value == digit) m.shade = PlayShade::SameDigit;
    }
    for (int c : m_verdictPattern) marks.at(std::size_t(c - 1)).shade = PlayShade::NudgePattern;
    if (m_nudgeShown) {
      for (int c : m_nudgeShown->area) marks.at(std::size_t(c - 1)).shade = PlayShade::NudgeArea;
      for (int c : m_nudgeShown->pattern) marks.at(std::size_t(c - 1)).shade = PlayShade::NudgePattern;
      for (const Candidate& r : m_nudgeShown->removals)
        marks.at(std::size_t(r.cell - 1)).removals |= std::uint16_t(1u << (r.digit - 1));
      for (const Candidate& p : m_nudgeShown->placements) marks.at(std::size_t(p.cell - 1)).placement = p.digit;
    }
    for (int c : m_wrongNotes) marks.at(std::size_t(c - 1)).shade = PlayShade::WrongNotes;
  }
  m_marks = marks;
  if (m_drawMarks) m_drawMarks(marks);
}

void ManualPage::afterCommand() {
  refreshFromSession();
  m_host.refreshFromSession();
  const int selected = m_play->selectedCell;
  if (selected != std::exchange(m_shownSelection, selected) && isCell(selected)) emit cellSelected(selected);
}

void ManualPage::prepare() {
  endExplanationHighlight();
  m_play->prepare();
  clearReadOuts();
}

void ManualPage::pageShown() {
  endExplanationHighlight();
  m_play->resetSelection();
  clearReadOuts();
}

void ManualPage::clearReadOuts() {
  m_explanation->clear();
  m_pointer->clear();
  refreshFromSession();
}

void ManualPage::refreshFromSession() {
  const ManualPlay& play = *m_play;
  m_cellChoice->setText(qt(play.cellChoice.text()));
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    m_rows[i]->setText(qt(play.PossibleInRow[i]));
    m_cols[i]->setText(qt(play.PossibleInCol[i]));
  }
  const int logCount = m_log->count();
  showLines(m_log, play.LogManual());
  if (m_log->count() > logCount) m_log->scrollToBottom();
  const int hintCount = m_hints->count();
  showLines(m_hints, hintTexts(m_session.hints));
  // A verdict comes last: the list shows it.
  if (m_hints->count() && !m_session.hints.empty() && m_session.hints.back().kind == HintKind::Verdict &&
      m_hints->count() != hintCount)
    m_hints->scrollToBottom();
  m_apply->setEnabled(m_nudgeShown && m_nudgeShown->canApply());
  if (m_clockLabel->isVisible()) m_clockLabel->setText(clockText(m_game->elapsedSeconds));
  drawMarks();
}

void ManualPage::endExplanationHighlight() {
  if (!m_stepCells.empty()) {
    for (int cell : std::exchange(m_stepCells, {})) paint(cell, ManualPaint::BoxNormal);
    if (isCell(m_play->highlightedCell)) paint(m_play->highlightedCell, ManualPaint::Selected);
  }
  const ExplainedAreas areas = std::exchange(m_explained, ExplainedAreas{});
  if (!areas.box) return;
  m_play->unhighlightBox(areas.box);
  for (int cell : areaCells(AreaKind::Row, areas.row)) paint(cell, ManualPaint::BoxNormal);
  for (int cell : areaCells(AreaKind::Col, areas.col)) paint(cell, ManualPaint::BoxNormal);
  // The selected cell keeps its colours when the areas around it go back.
  const int selected = m_play->highlightedCell;
  if (isCell(selected) &&
      (CellBox[selected] == areas.box || CellRow[selected] == areas.row || CellCol[selected] == areas.col))
    paint(selected, ManualPaint::Selected);
}

// --- the grid's events

void ManualPage::onCellClicked(int cell) {
  if (!m_play->active() || !isCell(cell)) return;
  endExplanationHighlight();
  m_play->selectCell(cell);
  afterCommand();
}

void ManualPage::onCellDoubleClicked(int cell, QPoint globalPos) {
  if (!m_play->active() || !isCell(cell)) return;
  endExplanationHighlight();
  const std::vector<int> digits = m_play->dropDownDigits(cell);
  afterCommand();
  for (int d = 1; d <= 9; ++d)
    m_choiceItems[std::size_t(d - 1)]->setVisible(std::find(digits.begin(), digits.end(), d) != digits.end());
  // A given offers nothing to choose.
  if (!digits.empty()) m_choices->popup(globalPos);
}

void ManualPage::onKeyReleased(int key, Qt::KeyboardModifiers modifiers) {
  if (!m_play->active()) return;
  switch (key) {
    case Qt::Key_Left: moveSelection(0, -1); return;
    case Qt::Key_Right: moveSelection(0, 1); return;
    case Qt::Key_Up: moveSelection(-1, 0); return;
    case Qt::Key_Down: moveSelection(1, 0); return;
    case Qt::Key_Space:
      // What a click on the cell's choices tells, for the keyboard.
      if (isCell(m_play->selectedCell)) {
        onCandidateHovered(m_play->selectedCell);
        onCandidateClicked(m_play->selectedCell);
      }
      return;
    default: break;
  }
  // N and H alone: the notes mode and the nudge (held with Ctrl, H is the cell hint's).
  if (!(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier))) {
    if (key == Qt::Key_N) return setNotesMode(!notesMode());
    if (key == Qt::Key_H) return nudge();
  }
  if (const int note = noteDigit(key, modifiers)) return move([this, note] { return m_game->typedNote(note); });
  const int value = typedValue(key, modifiers);
  if (!value) return;
  if (value != ManualPlay::kClear && notesMode()) return move([this, value] { return m_game->typedNote(value); });
  move([this, value] { return m_game->typed(value); });
}

void ManualPage::moveSelection(int rowStep, int colStep) {
  const int from = m_play->selectedCell;
  int cell = 1;
  if (isCell(from)) {
    const int row = std::clamp(CellRow[from] + rowStep, 1, GridSize);
    const int col = std::clamp(CellCol[from] + colStep, 1, GridSize);
    cell = CellNumber[row][col];
  }
  onCellClicked(cell);
}

void ManualPage::onCandidateHovered(int cell) {
  if (!isCell(cell)) return;
  m_pointer->setText(qt(candidateReadout(m_session, cell)));
}

void ManualPage::onCandidateClicked(int cell) {
  if (!isCell(cell)) return;
  endExplanationHighlight();
  const CandidateExplanation explanation = explainCandidates(m_session, cell);
  m_explanation->clear();
  for (const std::string& line : explanation.lines) m_explanation->addItem(qt(line));
  // The areas the explanation refers to: the cell's row, column and box stand
  // out until the next explanation or the next click on the grid.
  if (explanation.box) {
    m_play->highlightBox(explanation.box);
    for (int c : areaCells(AreaKind::Row, explanation.row)) paint(c, ManualPaint::BoxHighlight);
    for (int c : areaCells(AreaKind::Col, explanation.col)) paint(c, ManualPaint::BoxHighlight);
    m_explained = {explanation.row, explanation.col, explanation.box};
  }
  m_host.refreshFromSession();
}

void ManualPage::onBoxFrameClicked(int box) {
  if (box < 1 || box > 9) return;
  m_pointer->setText(qt(boxReadout(box)));
}

bool ManualPage::eventFilter(QObject* watched, QEvent* event) {
  // The keyboard's clicks on the lists: Enter for the left button, the
  // context-menu keys for the right one.
  if ((watched == m_hints || watched == m_log) && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    auto* list = static_cast<QListWidget*>(watched);
    const int row = list->currentRow();
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (row < 0 || !(enter || isContextMenuKey(key))) return QWidget::eventFilter(watched, event);
    if (watched == m_hints) {
      hintClicked(row, enter ? Qt::LeftButton : Qt::RightButton);
    } else if (enter) {
      m_play->moveListClicked(row);
      afterCommand();
    }
    return true;
  }
  if (watched == m_hints->viewport() && event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QModelIndex index = m_hints->indexAt(mouse->position().toPoint());
    if (index.isValid()) hintClicked(index.row(), mouse->button());
  }
  return QWidget::eventFilter(watched, event);
}

void ManualPage::hintClicked(int row, Qt::MouseButton button) {
  if (button != Qt::LeftButton && button != Qt::RightButton) return;
  endExplanationHighlight();
  move([this, row, button] {
    return m_game->act(CommandKind::Place,
                       [&] { hintLineClicked(m_session, *m_play, row, button == Qt::RightButton); });
  });
}

}  // namespace tessaly
