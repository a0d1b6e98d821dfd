#include "ui/ReplayController.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QShortcut>
#include <QSlider>
#include <algorithm>

#include "model/Session.h"
#include "solver/BoardHistory.h"
#include "solver/Narrator.h"
#include "ui/EventLogView.h"
#include "ui/ObjectNames.h"

namespace tessaly {

namespace {

bool isRemoval(FindingKind kind) { return kind == FindingKind::RuleRemoval || kind == FindingKind::HiddenSingleSet; }

/// The area a rule's reason (or a Rule 1 removal) highlights: Rule 4 its box,
/// the others the row, column or box the finding is about.
void markArea(const Finding& reason, BoardMarks& marks) {
  if (reason.rule == 4) {
    marks.box = reason.box;
    return;
  }
  switch (reason.areaKind) {
    case AreaKind::Row: marks.row = reason.area; break;
    case AreaKind::Col: marks.col = reason.area; break;
    case AreaKind::Box: marks.box = reason.area; break;
  }
}

void setPaint(BoardMarks& marks, int cell, CellPaint paint) {
  if (cell >= 1 && cell <= kCells) marks.paints[std::size_t(cell - 1)] = paint;
}

/// The marks the solver shows while line `line` is the newest: a reason and
/// the removal after it share the removal's cell and the reason's area.
void markLine(const std::vector<Finding>& findings, int line, BoardMarks& marks) {
  const auto at = std::lower_bound(findings.begin(), findings.end(), line,
                                   [](const Finding& f, int n) { return f.logLine < n; });
  if (at == findings.end() || at->logLine != line) return;
  const Finding& f = *at;
  switch (f.kind) {
    case FindingKind::Placement:
    case FindingKind::GuessPlacement: return setPaint(marks, f.cell, CellPaint::Placed);
    case FindingKind::DeadCell: return setPaint(marks, f.cell, CellPaint::Dead);
    case FindingKind::Retry: return setPaint(marks, f.cell, CellPaint::Retry);
    case FindingKind::DuplicateRemoved:
      markArea(f, marks);
      marks.cell = f.cell;
      return;
    case FindingKind::RuleReason: {
      markArea(f, marks);
      const auto next = at + 1;
      if (next != findings.end() && next->logLine == line + 1 && isRemoval(next->kind)) marks.cell = next->cell;
      return;
    }
    case FindingKind::RuleRemoval:
    case FindingKind::HiddenSingleSet:
      if (at != findings.begin()) {
        const Finding& before = *(at - 1);
        if (before.kind == FindingKind::RuleReason && before.logLine == line - 1) markArea(before, marks);
      }
      marks.cell = f.cell;
      return;
    default: return;
  }
}

}  // namespace

PastBoard pastBoardAtLine(const Session& session, int line) {
  PastBoard snapshot;
  snapshot.grid = boardAtLine(session.run.history, line);
  // The box counts as a candidate computation would make them of that board:
  // the digits not yet placed in each box.
  for (int b = 1; b <= GridSize; ++b) {
    CandidateSet missing = CandidateSet::full();
    for (int c : areaCells(AreaKind::Box, b))
      if (const int v = snapshot.grid[c].value) missing.remove(v);
    snapshot.boxMissing[std::size_t(b - 1)] = missing.size();
  }
  for (int c = 1; c <= kCells; ++c)
    snapshot.marks.paints[std::size_t(c - 1)] = snapshot.grid[c].given ? CellPaint::Given : CellPaint::Normal;
  markLine(session.run.findings, line, snapshot.marks);
  return snapshot;
}

QString replayLabelText(int line, int total) {
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  return QStringLiteral("Showing line %1 of %2 \u2014 Esc to return").arg(english.toString(line), english.toString(total));
}

ReplayController::ReplayController(const Session& session, CellBoard& board, EventLogView& log, QWidget* window)
    : QObject(window), m_session(session), m_board(board), m_log(log) {
  m_log.installEventFilter(this);
  connect(&m_log, &EventLogView::lineClicked, this, [this](int n) { showLine(n); });
  // Escape returns from anywhere in the window, but only takes the key while the past is shown.
  m_escape = new QShortcut(QKeySequence(Qt::Key_Escape), window);
  m_escape->setEnabled(false);
  connect(m_escape, &QShortcut::activated, this, [this] { returnToPresent(); });
}

QWidget* ReplayController::createStrip(QWidget* parent) {
  auto* strip = m_strip = new QWidget(parent);
  auto* layout = new QHBoxLayout(strip);
  layout->setContentsMargins(0, 0, 0, 0);
  m_slider = new QSlider(Qt::Horizontal, strip);
  m_slider->setObjectName(names::ReplaySlider);
  m_slider->setToolTip("The board at any line of the event log; the right end is the present");
  m_slider->setFocusPolicy(Qt::ClickFocus);
  m_slider->setAccessibleName("Replay");
  layout->addWidget(m_slider, 1);
  m_label = new QLabel(strip);
  m_label->setObjectName(names::ReplayLabel);
  QPalette colours = m_label->palette();
  colours.setColor(QPalette::WindowText, kPastFrame.darker(130));
  m_label->setPalette(colours);
  QFont bold = m_label->font();
  bold.setBold(true);
  m_label->setFont(bold);
  m_label->hide();
  layout->addWidget(m_label);
  connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
    if (m_settingSlider) return;
    if (value > totalLines())
      returnToPresent();
    else
      showLine(value);
  });
  updateSlider();
  return strip;
}

int ReplayController::totalLines() const { return m_log.TotalLines(); }

void ReplayController::showLine(int n) {
  const int total = totalLines();
  if (total == 0 || (m_allowed && !m_allowed())) return;
  showLineNow(std::clamp(n, 1, total));
}

void ReplayController::showLineNow(int n) {
  m_line = n;
  m_board.showSnapshot(pastBoardAtLine(m_session, n), kPastFrame);
  m_log.selectLine(n);
  if (m_label) {
    m_label->setText(replayLabelText(n, totalLines()));
    m_label->show();
  }
  m_escape->setEnabled(true);
  updateSlider();
}

void ReplayController::returnToPresent() {
  if (m_line == 0) return;
  m_line = 0;
  m_board.showPresent();
  m_log.selectLine(0);
  if (m_label) m_label->hide();
  m_escape->setEnabled(false);
  updateSlider();
}

void ReplayController::step(int delta) {
  const int total = totalLines();
  if (total == 0) return;
  const int from = m_line > 0 ? m_line : total + 1;
  const int to = std::clamp(from + delta, 1, total + 1);
  if (to > total)
    returnToPresent();
  else
    showLine(to);
}

std::vector<int> ReplayController::pausePoints() const {
  std::vector<int> lines;
  const int total = totalLines();
  for (const Finding& f : m_session.run.findings)
    if (f.logLine <= total && narrationWaits(f.kind)) lines.push_back(f.logLine);
  return lines;
}

void ReplayController::stepPausePoint(int direction) {
  const int total = totalLines();
  if (total == 0) return;
  const std::vector<int> points = pausePoints();
  const int from = m_line > 0 ? m_line : total + 1;
  if (direction < 0) {
    const auto before = std::lower_bound(points.begin(), points.end(), from);
    showLine(before == points.begin() ? 1 : *(before - 1));
  } else {
    const auto after = std::upper_bound(points.begin(), points.end(), from);
    if (after == points.end())
      returnToPresent();
    else
      showLine(*after);
  }
}

void ReplayController::logChanged() {
  if (m_line > totalLines()) returnToPresent();
  if (m_line > 0 && m_label) m_label->setText(replayLabelText(m_line, totalLines()));
  updateSlider();
}

void ReplayController::updateSlider() {
  if (!m_slider) return;
  // Positions 1..n are the lines, n + 1 the present.
  const int total = totalLines();
  m_settingSlider = true;
  m_slider->setRange(1, total + 1);
  m_slider->setPageStep(std::max(1, total / 20));
  m_slider->setValue(m_line > 0 ? m_line : total + 1);
  m_slider->setEnabled(total > 0);
  m_settingSlider = false;
}

bool ReplayController::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &m_log) return QObject::eventFilter(watched, event);
  // The strip goes with the log when a creation hides it.
  if ((event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) && m_strip)
    m_strip->setHidden(m_log.isHidden());
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->modifiers() & ~Qt::KeypadModifier) return false;
  const bool allowed = !m_allowed || m_allowed();
  switch (key->key()) {
    case Qt::Key_Up: if (allowed) step(-1); return allowed;
    case Qt::Key_Down: if (allowed) step(1); return allowed;
    case Qt::Key_PageUp: if (allowed) stepPausePoint(-1); return allowed;
    case Qt::Key_PageDown: if (allowed) stepPausePoint(1); return allowed;
    case Qt::Key_Home: if (allowed) showLine(1); return allowed;
    case Qt::Key_End:
    case Qt::Key_Escape:
      if (m_line == 0) return false;
      returnToPresent();
      return true;
    default: return false;
  }
}

}  // namespace tessaly
