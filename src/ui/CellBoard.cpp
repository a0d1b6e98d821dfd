#include "ui/CellBoard.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "model/Session.h"
#include "ui/ColourScheme.h"
#include "ui/FrameBox.h"
#include "ui/Metrics.h"
#include "ui/ObjectNames.h"
#include "ui/WidgetColours.h"

namespace tessaly {

namespace {

bool isCell(int cell) { return cell >= 1 && cell <= kCells; }

/// The colours of play: the player's notes, the shades of a cell while playing
/// and a repeated digit. Light shades behind the ordinary text, so every
/// colour scheme keeps it readable.
const QColor kNotesText(0, 70, 200);
const QColor kClashText(210, 0, 0);
QColor shadeColour(PlayShade shade) {
  switch (shade) {
    case PlayShade::SameDigit: return {205, 225, 255};
    case PlayShade::NudgeArea: return {255, 243, 180};
    case PlayShade::NudgePattern: return {255, 205, 120};
    case PlayShade::WrongNotes: return {255, 150, 150};
    case PlayShade::None: break;
  }
  return {};
}

QString digitsOf(std::uint16_t mask) {
  QString digits;
  for (int d = 1; d <= 9; ++d)
    if (mask & (1u << (d - 1))) digits += QChar('0' + d);
  return digits;
}

/// The number after the pattern's "%1" in a name such as "PosVals_12", or 0.
int numberIn(const QString& name, const char* pattern) {
  const QString prefix = QString(pattern).section("%1", 0, 0);
  if (!name.startsWith(prefix)) return 0;
  bool ok = false;
  const int n = name.mid(prefix.size()).toInt(&ok);
  return ok ? n : 0;
}

}  // namespace

CellBoard::CellBoard(const Session& session, const ColourScheme& scheme, QWidget* parent)
    : QWidget(parent), m_session(session), m_scheme(scheme) {
  m_grid = new BoardView(BoardView::Kind::Values, this);
  m_grid->setObjectName(names::Grid);
  // The two boards keep together in the middle when the window is wider than they need.
  m_grid->setHorizontalAlignment(Qt::AlignRight);
  m_grid->setAccessibleName("Board");
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  // Shares of the width in proportion to what each board needs for the same
  // cell size: the candidate display also holds the box counts and its frame.
  layout->addWidget(m_grid, 10);
  layout->addWidget(createCandidateDisplay(), 12);

  connect(m_grid, &BoardView::cellReleased, this,
          [this](int index, Qt::MouseButton button) { emit valueBoxClicked(index + 1, button); });
  connect(m_grid, &BoardView::cellDoubleClicked, this, [this](int index) { emit valueBoxDoubleClicked(index + 1); });
  connect(m_grid, &BoardView::keyReleased, this, &CellBoard::gridKeyReleased);
  connect(m_grid, &BoardView::boxFrameClicked, this, [this](int box) { emit boxFrameClicked(box + 1); });
  connect(m_candidateView, &BoardView::cellReleased, this,
          [this](int index, Qt::MouseButton button) { emit candidateLabelClicked(index + 1, button); });
  connect(m_candidateView, &BoardView::cellHovered, this, [this](int index) { emit candidateLabelHovered(index + 1); });
}

QGroupBox* CellBoard::createCandidateDisplay() {
  m_candidates = new FrameBox("Choices for cells", this);
  m_candidates->setObjectName(names::PosValsFrame);
  m_candidates->setAutoFillBackground(true);
  m_candidateView = new BoardView(BoardView::Kind::Candidates, m_candidates);
  m_candidateView->setObjectName(names::PosVals);
  m_candidateView->setHorizontalAlignment(Qt::AlignLeft);
  m_candidateView->setAccessibleName("Choices for cells");
  m_candidateView->setAccessibleDescription(BoardView::kBoxCountHint);
  auto* hint = new QLabel(BoardView::kBoxCountHint, m_candidates);
  hint->setObjectName(names::BoxMissingCountCaption);
  hint->setWordWrap(true);
  QFont small = hint->font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  hint->setFont(small);
  reserveLines(hint, 2);
  auto* layout = new QVBoxLayout(m_candidates);
  layout->addWidget(m_candidateView, 1);
  layout->addWidget(hint);
  return m_candidates;
}

QWidget* CellBoard::candidateDisplay() const { return m_candidates; }

// --- the cells by name

BoardCell CellBoard::describe(BoardView* view, const QString& name, const BoardView::Look& look, const QRect& rect,
                              const QString& toolTip) {
  return BoardCell{name, look.text, look.back, look.fore, look.bold, look.notes + look.struck + look.proposed,
                   toolTip, rect, view};
}

BoardCell CellBoard::valueCell(int cell) const {
  if (!isCell(cell)) return {};
  return describe(m_grid, QString(names::Grid_N).arg(cell - 1), m_grid->cell(cell - 1), m_grid->cellRect(cell - 1),
                  BoardView::cellToolTip(cell - 1));
}

BoardCell CellBoard::candidateCell(int cell) const {
  if (!isCell(cell)) return {};
  return describe(m_candidateView, QString(names::PosVals_N).arg(cell), m_candidateView->cell(cell - 1),
                  m_candidateView->cellRect(cell - 1), BoardView::cellToolTip(cell - 1));
}

BoardCell CellBoard::boxCount(int box) const {
  if (box < 1 || box > GridSize) return {};
  BoardView::Look look{m_candidateView->count(box - 1), QColor(),
                       m_candidates->palette().color(QPalette::WindowText), false};
  return describe(m_candidateView, QString(names::BoxMissingCount_N).arg(box), look,
                  m_candidateView->countRect(box - 1), BoardView::kBoxCountHint);
}

BoardCell CellBoard::cellAt(const QString& name) const {
  // Grid_ counts from 0, the others from 1.
  if (name.startsWith(QString(names::Grid_N).section("%1", 0, 0))) {
    bool ok = false;
    const int index = name.section('_', 1).toInt(&ok);
    return ok ? valueCell(index + 1) : BoardCell{};
  }
  if (const int cell = numberIn(name, names::PosVals_N)) return candidateCell(cell);
  if (const int box = numberIn(name, names::BoxMissingCount_N)) return boxCount(box);
  return {};
}

// --- paints and highlights

bool BoardMarks::inArea(int c) const {
  return (row && CellRow[c] == row) || (col && CellCol[c] == col) || (box && CellBox[c] == box);
}

void CellBoard::setPaint(int cell, CellPaint paint) {
  if (isCell(cell)) m_marks.paints[std::size_t(cell - 1)] = paint;
}

void CellBoard::clearPaints() { m_marks.paints.fill(CellPaint::Normal); }

void CellBoard::highlightArea(int cell, int row, int col, int box) {
  m_marks.row = std::max(0, row);
  m_marks.col = std::max(0, col);
  m_marks.box = std::max(0, box);
  m_marks.cell = cell;
}

void CellBoard::restoreHighlight() { m_marks.row = m_marks.col = m_marks.box = m_marks.cell = 0; }

bool CellBoard::isAreaHighlighted(int cell) const { return m_marks.inArea(cell); }

void CellBoard::setOverlayColours(int cell, QColor back, QColor text) {
  if (isCell(cell)) m_overlays[std::size_t(cell - 1)] = {QString(), back, text, false};
}

void CellBoard::clearOverlayColours(int cell) {
  if (isCell(cell)) m_overlays[std::size_t(cell - 1)] = {};
}

// The scheme leaves the highlight colours to the program; these pairs keep the
// text readable with the defaults and with every scheme. A cell the solver
// marks (placed, dead end, re-try) shows it on the grid and among the choices alike.
CellBoard::Colours CellBoard::valueBoxColours(const PuzzleGrid& grid, const BoardMarks& marks, bool overlays,
                                              int cell) const {
  const ColourScheme& s = m_scheme;
  const Cell& c = grid[cell];
  const Colours ordinary = c.given ? Colours{{}, qcolor(s.givenBack), qcolor(s.givenText)}
                                   : Colours{{}, qcolor(s.valueBack), qcolor(s.candidateText)};
  if (const Colours& overlay = m_overlays[std::size_t(cell - 1)]; overlays && overlay.back.isValid())
    return {{}, overlay.back, overlay.fore.isValid() ? overlay.fore : ordinary.fore};
  if (overlays)
    if (const QColor shade = shadeColour(m_playMarks[std::size_t(cell - 1)].shade); shade.isValid())
      return {{}, shade, ordinary.fore};
  switch (marks.paints[std::size_t(cell - 1)]) {
    case CellPaint::Placed: return {{}, qcolor(s.highlightRed), qcolor(s.colour[5])};
    case CellPaint::Dead: return {{}, qcolor(s.colour[6]), qcolor(s.colour[14])};
    case CellPaint::Retry: return {{}, qcolor(s.highlightGreen), qcolor(s.colour[5])};
    case CellPaint::Given:
    case CellPaint::Normal: break;
  }
  return ordinary;
}

CellBoard::Colours CellBoard::candidateColours(const PuzzleGrid& grid, const BoardMarks& marks, int cell) const {
  const ColourScheme& s = m_scheme;
  if (cell == marks.cell) return {{}, qcolor(s.colour[13]), qcolor(s.colour[8])};
  Colours base;
  switch (marks.paints[std::size_t(cell - 1)]) {
    case CellPaint::Placed: base = {{}, qcolor(s.highlightRed), qcolor(s.colour[5])}; break;
    case CellPaint::Dead: base = {{}, qcolor(s.colour[6]), qcolor(s.colour[14])}; break;
    case CellPaint::Retry: base = {{}, qcolor(s.highlightGreen), qcolor(s.colour[5])}; break;
    case CellPaint::Given: base = {{}, qcolor(s.givenBack), qcolor(s.givenText)}; break;
    case CellPaint::Normal:
      base = grid.isSingle(cell) ? Colours{{}, qcolor(s.givenBack), qcolor(s.givenText)}
                                           : Colours{{}, qcolor(s.candidateBack), qcolor(s.candidateText)};
      break;
  }
  if (marks.inArea(cell)) base.back = qcolor(s.colour[9]);
  return base;
}

void CellBoard::refreshFromSession() {
  if (m_snapshot)
    draw(m_snapshot->grid, m_snapshot->boxMissing, m_snapshot->marks, false);
  else
    draw(m_session.grid, m_session.BoxMissingCount, m_marks, true);
}

void CellBoard::showSnapshot(const PastBoard& snapshot, const QColor& frame) {
  m_snapshot = snapshot;
  m_grid->setFrameColour(frame);
  m_candidateView->setFrameColour(frame);
  refreshFromSession();
}

void CellBoard::showPresent() {
  if (!m_snapshot) return;
  m_snapshot.reset();
  m_grid->setFrameColour(QColor());
  m_candidateView->setFrameColour(QColor());
  refreshFromSession();
}

void CellBoard::draw(const PuzzleGrid& grid, const std::array<int, 9>& boxMissing, const BoardMarks& marks,
                     bool overlays) {
  paintBackground(m_grid, m_scheme.candidateBack);
  m_grid->setAutoFillBackground(false);  // the view fills the board alone
  paintBackground(m_candidates, m_scheme.candidateFrameBack);
  const BoardView::Batch values(*m_grid), choices(*m_candidateView);
  for (int cell = 1; cell <= kCells; ++cell) {
    const Cell& c = grid[cell];
    Colours value = valueBoxColours(grid, marks, overlays, cell);
    value.text = c.value ? QString::number(c.value) : QString();
    value.bold = c.given;
    if (overlays) {
      const PlayMarks& play = m_playMarks[std::size_t(cell - 1)];
      if (play.clash && c.value) value.fore = kClashText;
      if (!c.value) {
        value.notes = digitsOf(play.notes & ~play.removals);
        value.struck = digitsOf(play.removals);
        value.proposed = play.placement ? QString::number(play.placement) : QString();
        // Over manual play's own colours (the selected cell) the notes take its text colour.
        value.notesFore = m_overlays[std::size_t(cell - 1)].back.isValid() ? value.fore : kNotesText;
      }
    }
    m_grid->setCell(cell - 1, value);
    Colours candidates = candidateColours(grid, marks, cell);
    candidates.text = QString::fromStdString(c.candidates.text());
    m_candidateView->setCell(cell - 1, candidates);
    const BoardView::CellState state{c.value, c.given, candidates.text, value.notes};
    m_grid->setCellState(cell - 1, state);
    m_candidateView->setCellState(cell - 1, state);
  }
  const bool anyValue = grid.filledCount() > 0;
  for (int box = 1; box <= GridSize; ++box)
    m_candidateView->setCount(box - 1,
                              anyValue ? QString::number(boxMissing[std::size_t(box - 1)]) : QString());
}

}  // namespace tessaly
