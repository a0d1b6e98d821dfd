#include "ui/PuzzleFrame.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "model/Session.h"
#include "model/Text.h"
#include "solver/Grader.h"
#include "solver/ReadPuzzle.h"
#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/Metrics.h"
#include "ui/ObjectNames.h"
#include "ui/RightClickButton.h"
#include "ui/WidgetColours.h"

namespace tessaly {

namespace {
constexpr int kNumberBoxDigits = 6;  ///< the widest number the box is made for
}

PuzzleFrame::PuzzleFrame(Session& session, CommandHost& host, QWidget* parent)
    : FrameBox(QString(), parent), m_session(session), m_host(host) {
  setObjectName(names::PuzNumber);
  auto* layout = new QGridLayout(this);

  // Under the title, what the puzzle is like.
  auto* verdict = new QHBoxLayout;
  m_solutions = new QLabel(this);
  m_solutions->setObjectName(names::SolutionsLabel);
  m_grade = new QLabel(this);
  m_grade->setObjectName(names::GradeLabel);
  verdict->addWidget(m_solutions);
  verdict->addSpacing(m_solutions->fontMetrics().averageCharWidth() * 2);
  verdict->addWidget(m_grade);
  verdict->addStretch(1);
  layout->addLayout(verdict, 0, 0, 1, 5);

  m_file = new QLineEdit(this);
  m_file->setObjectName(names::FileNow);
  m_file->setReadOnly(true);
  layout->addWidget(new QLabel("File", this), 1, 0);
  layout->addWidget(m_file, 1, 1, 1, 4);

  m_number = new QLineEdit(this);
  m_number->setObjectName(names::PuzNumNow);
  m_number->setFixedWidth(numberBoxWidth(m_number, kNumberBoxDigits));
  m_number->setToolTip("Type a puzzle number and press Enter");
  m_number->installEventFilter(this);
  layout->addWidget(new QLabel("Puzzle", this), 2, 0);
  layout->addWidget(m_number, 2, 1);

  const std::array<const char*, 3> captions = {"Previous", "Next", "Random"};
  const std::array<const char*, 3> hints = {"Left button: the previous puzzle. Right button: the first puzzle",
                                            "Left button: the next puzzle. Right button: the last puzzle",
                                            "A puzzle chosen at random"};
  for (int i = 0; i < 3; ++i) {
    auto* button = new RightClickButton(captions[std::size_t(i)], this);
    button->setObjectName(QString(names::NavButton_N).arg(i));
    button->setToolTip(hints[std::size_t(i)]);
    layout->addWidget(button, 2, 2 + i);
    connect(button, &RightClickButton::released, this,
            [this, i](Qt::MouseButton mouseButton) { navigate(static_cast<NavButton>(i), mouseButton); });
    m_buttons[std::size_t(i)] = button;
  }
  m_puzzleLoaded = m_session.puzzleLoaded.subscribe([this] { m_verdict = judgeGivens(m_session); });
  if (m_session.givenCount() > 0) m_verdict = judgeGivens(m_session);
}

void PuzzleFrame::judgeAgain() {
  if (m_session.givenCount() > 0) m_verdict = judgeGivens(m_session);
  refreshFromSession();
}

void PuzzleFrame::navigate(NavButton button, Qt::MouseButton mouseButton) {
  m_host.runCommand([this, button, mouseButton] {
    Session& s = m_session;
    const double uniform = button == NavButton::Random ? s.random().uniform() : 0.0;
    const int shown = int(numericValue(m_number->text().toStdString()));
    const int target =
        navigationTarget(button, mouseButton == Qt::RightButton, shown, s.collection.TotalPuzzles, uniform);
    if (target <= 0) return;
    m_number->setText(QString::number(target));
    s.collection.CurrentPuzzleNumber = target;
    m_host.puzzleRead(readPuzzle(s, s.collection.CurrentFile, target));
  });
}

void PuzzleFrame::readTypedNumber() {
  m_host.runCommand([this] {
    Session& s = m_session;
    if (const auto n = typedPuzzleNumber(m_number->text().toStdString(), s.collection.TotalPuzzles)) {
      s.collection.CurrentPuzzleNumber = *n;
      m_host.puzzleRead(readPuzzle(s, s.collection.CurrentFile, *n));
    }
  });
}

bool PuzzleFrame::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_number) {
    const auto isEnter = [](const QKeyEvent* key) {
      return !key->isAutoRepeat() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
    };
    // The number is read when Enter is let go, but only an Enter pressed in
    // the box counts: the release of the Enter that closed a message box lands
    // here once the box has the focus back, and must not read the puzzle again.
    if (event->type() == QEvent::KeyPress && isEnter(static_cast<QKeyEvent*>(event))) {
      m_enterPressed = true;
    } else if (event->type() == QEvent::FocusOut) {
      m_enterPressed = false;
    } else if (event->type() == QEvent::KeyRelease && isEnter(static_cast<QKeyEvent*>(event))) {
      if (!std::exchange(m_enterPressed, false)) return true;
      readTypedNumber();
      return true;
    }
  }
  return FrameBox::eventFilter(watched, event);
}

void PuzzleFrame::refreshFromSession() {
  const BoardOrigin& origin = m_session.collection.origin();
  setTitle(QString::fromStdString(puzzleTitle(origin)));
  if (m_verdict) {
    m_solutions->setText(QString::fromStdString(solutionsCaption(m_verdict->solutions)));
    m_grade->setText(QString::fromStdString(gradeCaption(m_verdict->grade)));
    m_grade->setToolTip(QString::fromStdString(std::string(gradeMeaning(m_verdict->grade))));
  }
  const QString file = QString::fromStdString(m_session.collection.CurrentFile);
  if (m_file->text() != file) {
    m_file->setText(file);
    m_file->setToolTip(file);
    m_file->setCursorPosition(int(file.size()));
  }
  // The box shows the number once for each change of the board's origin, and
  // otherwise keeps what the user types into it.
  if (origin.changes != m_shownChange) {
    m_shownChange = origin.changes;
    if (const auto number = puzzleNumberText(origin); number && m_number->text().toStdString() != *number)
      m_number->setText(QString::fromStdString(*number));
  }
}

void PuzzleFrame::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.puzzleFrameBack); }

}  // namespace tessaly
