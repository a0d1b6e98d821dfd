#include "ui/CellBoard.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "model/Session.h"
#include "ui/ColourScheme.h"
#include "ui/ObjectNames.h"
#include "ui/WidgetColours.h"

namespace tessaly {

namespace {

constexpr int kBoxSize = 3;
constexpr int kValueBoxSize = 36;  ///< pixels, square
constexpr int kCellGap = 2;        ///< pixels between two value boxes
constexpr int kBoxGap = 8;         ///< extra pixels before columns and rows 4 and 7
constexpr int kCandidateWidth = 64;
constexpr int kCandidateHeight = 22;
constexpr int kValueFontPoints = 14;
constexpr int kCandidateFontPoints = 8;
/// The value boxes' own background, kept for every box that is not a given.
const QColor kValueBoxBack(255, 255, 255);
constexpr const char* kBoxCountHint = "The total number of choices in a box are shown on the right hand side";
constexpr const char* kCellProperty = "cell";

/// Layout position of row or column 0..8: every third line starts after a
/// spacer line, so the boxes of the grid stand apart.
int layoutLine(int line) { return line + line / kBoxSize; }

}  // namespace

CellBoard::CellBoard(const Session& session, const ColourScheme& scheme, QWidget* parent)
    : QWidget(parent), m_session(session), m_scheme(scheme) {
  m_paints.fill(CellPaint::Normal);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(createGrid(), 0, Qt::AlignTop);
  layout->addWidget(createCandidateDisplay(), 0, Qt::AlignTop);
  layout->addStretch();
}

QWidget* CellBoard::candidateDisplay() const { return m_candidates; }

QFrame* CellBoard::createGrid() {
  m_grid = new QFrame(this);
  m_grid->setObjectName(names::Grid);
  m_grid->setFrameShape(QFrame::Box);
  m_grid->setAutoFillBackground(true);
  // The grid, not each box, takes the keyboard: a label that can take focus
  // draws through a text document, which costs a repaint of its own each time.
  m_grid->setFocusPolicy(Qt::ClickFocus);
  m_grid->installEventFilter(this);
  auto* layout = new QGridLayout(m_grid);
  layout->setSpacing(kCellGap);
  for (int gap = kBoxSize; gap < GridSize; gap += kBoxSize) {
    const int spacer = layoutLine(gap) - 1;
    layout->setRowMinimumHeight(spacer, kBoxGap);
    layout->setColumnMinimumWidth(spacer, kBoxGap);
  }
  QFont font = m_grid->font();
  font.setPointSize(kValueFontPoints);
  for (int cell = 1; cell <= kCells; ++cell) {
    auto* box = new QLabel(m_grid);
    box->setObjectName(QString(names::Grid_N).arg(cell - 1));
    box->setToolTip(QString::number(cell));
    box->setProperty(kCellProperty, cell);
    box->setAlignment(Qt::AlignCenter);
    box->setFrameShape(QFrame::Panel);
    box->setFrameShadow(QFrame::Sunken);
    box->setFixedSize(kValueBoxSize, kValueBoxSize);
    box->setFont(font);
    box->setAutoFillBackground(true);
    box->installEventFilter(this);
    layout->addWidget(box, layoutLine(CellRow[cell] - 1), layoutLine(CellCol[cell] - 1));
    m_valueBoxes[std::size_t(cell - 1)] = box;
  }
  return m_grid;
}

QGroupBox* CellBoard::createCandidateDisplay() {
  m_candidates = new QGroupBox("Choices for cells", this);
  m_candidates->setObjectName(names::PosValsFrame);
  m_candidates->setAutoFillBackground(true);
  auto* outer = new QVBoxLayout(m_candidates);
  auto* layout = new QGridLayout;
  layout->setSpacing(kCellGap);
  outer->addLayout(layout);
  QFont font = m_candidates->font();
  font.setPointSize(kCandidateFontPoints);
  // Each band of three columns is followed by a column for its boxes' counts.
  const auto layoutColumn = [](int col) { return col + col / kBoxSize; };
  for (int gap = kBoxSize; gap < GridSize; gap += kBoxSize) layout->setRowMinimumHeight(layoutLine(gap) - 1, kBoxGap);
  for (int cell = 1; cell <= kCells; ++cell) {
    auto* label = new QLabel(m_candidates);
    label->setObjectName(QString(names::PosVals_N).arg(cell));
    label->setToolTip(QString::number(cell));
    label->setProperty(kCellProperty, cell);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setFixedSize(kCandidateWidth, kCandidateHeight);
    label->setFont(font);
    label->setAutoFillBackground(true);
    label->installEventFilter(this);
    layout->addWidget(label, layoutLine(CellRow[cell] - 1), layoutColumn(CellCol[cell] - 1));
    m_candidateLabels[std::size_t(cell - 1)] = label;
  }
  for (int box = 1; box <= GridSize; ++box) {
    auto* count = new QLabel(m_candidates);
    count->setObjectName(QString(names::BoxMissingCount_N).arg(box));
    count->setToolTip(kBoxCountHint);
    count->setAlignment(Qt::AlignCenter);
    count->setMinimumWidth(kBoxGap * 2);
    const int middleRow = (box - 1) / kBoxSize * kBoxSize + 1;
    const int band = (box - 1) % kBoxSize;
    layout->addWidget(count, layoutLine(middleRow), band * (kBoxSize + 1) + kBoxSize);
    m_boxCounts[std::size_t(box - 1)] = count;
  }
  auto* hint = new QLabel(kBoxCountHint, m_candidates);
  hint->setObjectName(names::BoxMissingCountCaption);
  QFont small = hint->font();
  small.setPointSize(kCandidateFontPoints);
  hint->setFont(small);
  outer->addWidget(hint);
  return m_candidates;
}

void CellBoard::setPaint(int cell, CellPaint paint) {
  if (cell >= 1 && cell <= kCells) m_paints[std::size_t(cell - 1)] = paint;
}

void CellBoard::clearPaints() { m_paints.fill(CellPaint::Normal); }

void CellBoard::highlightArea(int cell, int row, int col, int box) {
  m_highlightRow = std::max(0, row);
  m_highlightCol = std::max(0, col);
  m_highlightBox = std::max(0, box);
  m_highlightCell = cell;
}

void CellBoard::restoreHighlight() { m_highlightRow = m_highlightCol = m_highlightBox = m_highlightCell = 0; }

bool CellBoard::isAreaHighlighted(int cell) const {
  return (m_highlightRow && CellRow[cell] == m_highlightRow) || (m_highlightCol && CellCol[cell] == m_highlightCol) ||
         (m_highlightBox && CellBox[cell] == m_highlightBox);
}

void CellBoard::setOverlayColours(int cell, QColor back, QColor text) {
  if (cell >= 1 && cell <= kCells) m_overlays[std::size_t(cell - 1)] = {back, text};
}

void CellBoard::clearOverlayColours(int cell) {
  if (cell >= 1 && cell <= kCells) m_overlays[std::size_t(cell - 1)] = {};
}

CellBoard::Colours CellBoard::valueBoxColours(int cell) const {
  const Cell& c = m_session.grid[cell];
  if (const Colours& overlay = m_overlays[std::size_t(cell - 1)]; overlay.back.isValid()) {
    Colours ordinary = c.given ? Colours{qcolor(m_scheme.givenBack), qcolor(m_scheme.givenText)}
                               : Colours{kValueBoxBack, qcolor(m_scheme.candidateText)};
    return {overlay.back, overlay.text.isValid() ? overlay.text : ordinary.text};
  }
  if (paint(cell) == CellPaint::Placed) return {qcolor(m_scheme.highlightRed), qcolor(m_scheme.colour[5])};
  if (c.given) return {qcolor(m_scheme.givenBack), qcolor(m_scheme.givenText)};
  return {kValueBoxBack, qcolor(m_scheme.candidateText)};
}

// The scheme leaves the highlight colours to the program; these pairs keep the
// text readable with the defaults and with every scheme.
CellBoard::Colours CellBoard::candidateColours(int cell) const {
  const ColourScheme& s = m_scheme;
  if (cell == m_highlightCell) return {qcolor(s.colour[13]), qcolor(s.colour[8])};
  Colours base;
  switch (paint(cell)) {
    case CellPaint::Placed: base = {qcolor(s.highlightRed), qcolor(s.colour[5])}; break;
    case CellPaint::Dead: base = {qcolor(s.colour[6]), qcolor(s.colour[14])}; break;
    case CellPaint::Retry: base = {qcolor(s.highlightGreen), qcolor(s.colour[5])}; break;
    case CellPaint::Given: base = {qcolor(s.givenBack), qcolor(s.givenText)}; break;
    case CellPaint::Normal:
      base = m_session.grid.isSingle(cell) ? Colours{qcolor(s.givenBack), qcolor(s.givenText)}
                                           : Colours{qcolor(s.candidateBack), qcolor(s.candidateText)};
      break;
  }
  if (isAreaHighlighted(cell)) base.back = qcolor(s.colour[9]);
  return base;
}

void CellBoard::paintLabel(QLabel* label, const Colours& colours, Colours& applied) {
  if (colours == applied) return;
  applied = colours;
  QPalette palette = label->palette();
  palette.setColor(QPalette::Window, colours.back);
  palette.setColor(QPalette::WindowText, colours.text);
  label->setPalette(palette);
}

void CellBoard::refreshFromSession() {
  const PuzzleGrid& grid = m_session.grid;
  paintBackground(m_grid, m_scheme.candidateBack);
  paintBackground(m_candidates, m_scheme.candidateFrameBack);
  for (int cell = 1; cell <= kCells; ++cell) {
    const std::size_t i = std::size_t(cell - 1);
    const Cell& c = grid[cell];
    m_valueBoxes[i]->setText(c.value ? QString::number(c.value) : QString());
    m_candidateLabels[i]->setText(QString::fromStdString(c.candidates.text()));
    QFont font = m_valueBoxes[i]->font();
    if (font.bold() != c.given) {
      font.setBold(c.given);
      m_valueBoxes[i]->setFont(font);
    }
    paintLabel(m_valueBoxes[i], valueBoxColours(cell), m_valueBoxApplied[i]);
    paintLabel(m_candidateLabels[i], candidateColours(cell), m_candidateApplied[i]);
  }
  const bool anyValue = grid.filledCount() > 0;
  for (int box = 1; box <= GridSize; ++box)
    m_boxCounts[std::size_t(box - 1)]->setText(
        anyValue ? QString::number(m_session.BoxMissingCount[std::size_t(box - 1)]) : QString());
}

bool CellBoard::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_grid) {
    if (event->type() == QEvent::KeyPress && m_selectedCell > 0)
      emit valueBoxKeyPressed(m_selectedCell, static_cast<QKeyEvent*>(event)->key());
    return QWidget::eventFilter(watched, event);
  }
  const QVariant cellProperty = watched->property(kCellProperty);
  if (!cellProperty.isValid()) return QWidget::eventFilter(watched, event);
  const int cell = cellProperty.toInt();
  const bool isValueBox = watched->parent() == m_grid;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (isValueBox) m_selectedCell = cell;
      break;
    case QEvent::MouseButtonRelease: {
      const auto button = static_cast<QMouseEvent*>(event)->button();
      if (isValueBox)
        emit valueBoxClicked(cell, button);
      else
        emit candidateLabelClicked(cell, button);
      break;
    }
    case QEvent::MouseButtonDblClick:
      if (isValueBox) emit valueBoxDoubleClicked(cell);
      break;
    case QEvent::Enter:
      if (!isValueBox) emit candidateLabelHovered(cell);
      break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tessaly
