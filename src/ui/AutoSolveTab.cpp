#include "ui/AutoSolveTab.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/Session.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/CommandStates.h"
#include "ui/FrameBox.h"
#include "ui/ObjectNames.h"
#include "ui/RightClickButton.h"
#include "ui/Shortcuts.h"
#include "ui/WidgetColours.h"

namespace tessaly {

AutoSolveTab::AutoSolveTab(Session& session, CommandHost& host, QWidget* parent) : TabPage(session, host, parent) {
  setObjectName(names::AutoSolveTab);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  m_frame = new FrameBox("Solution", this);
  m_frame->setObjectName(names::SolutionsFrame);
  outer->addWidget(m_frame);
  outer->addStretch();

  // F5 to F8 and the underlined letters work the run from the keyboard.
  m_start = new QPushButton("&Start", m_frame);
  m_start->setObjectName(names::StartCommand);
  addShortcut(m_start, QKeySequence(Qt::Key_F5), "Solve step by step, explaining each step");
  m_next = new RightClickButton("&Next", m_frame);
  m_next->setObjectName(names::NextStepCommand);
  addShortcut(m_next, QKeySequence(Qt::Key_F6), "Left button: the next step. Right button: run on to the end");
  m_solve = new QPushButton("So&lve", m_frame);
  m_solve->setObjectName(names::Solveit);
  addShortcut(m_solve, QKeySequence(Qt::Key_F7), "Solve the puzzle without pauses");
  m_pause = new QCheckBox("No &pauses", m_frame);
  m_pause->setObjectName(names::PauseCheck);
  addShortcut(m_pause, QKeySequence(Qt::Key_F8), "Run on without pausing at each step");
  m_solveAtOnce = new QCheckBox("Solve at once", m_frame);
  m_solveAtOnce->setObjectName(names::Check3);
  m_solveAtOnce->setToolTip("Start solves the puzzle at once, without the explanations");
  m_clear = new QPushButton("Clear", m_frame);
  m_clear->setObjectName(names::ClearCommand);
  m_clear->setToolTip("Read the puzzle again");
  m_edit = new QPushButton("Edit", m_frame);
  m_edit->setObjectName(names::EditCommand);
  m_edit->setToolTip("Type in a puzzle");

  auto* layout = new QGridLayout(m_frame);
  layout->addWidget(m_start, 0, 0);
  layout->addWidget(m_next, 0, 1);
  layout->addWidget(m_solve, 1, 0);
  layout->addWidget(m_clear, 1, 1);
  layout->addWidget(m_edit, 2, 0);
  layout->addWidget(m_pause, 3, 0, 1, 2);
  layout->addWidget(m_solveAtOnce, 4, 0, 1, 2);

  connect(m_start, &QPushButton::clicked, this, [this] { start(); });
  connect(m_next, &RightClickButton::released, this, [this](Qt::MouseButton button) { nextStep(button); });
  connect(m_solve, &QPushButton::clicked, this, [this] { solve(); });
  connect(m_pause, &QCheckBox::clicked, this, [this](bool checked) { pauseChanged(checked); });
  connect(m_solveAtOnce, &QCheckBox::clicked, this, [this](bool checked) {
    m_session.controls.solveAtOnce = checked;
    m_host.refreshFromSession();
  });
  connect(m_clear, &QPushButton::clicked, this, [this] { clear(); });
  connect(m_edit, &QPushButton::clicked, this, [this] {
    if (editCommand) m_host.runCommand(editCommand);
  });
}

void AutoSolveTab::start() {
  m_host.runCommand([this] { SolverEngine(m_session).startCommand(); });
}

void AutoSolveTab::nextStep(Qt::MouseButton button) {
  SolverEngine(m_session).nextCommand(button == Qt::RightButton);
  m_host.releasePause();
}

void AutoSolveTab::solve() {
  m_host.runCommand([this] { SolverEngine(m_session).solveCommand(); });
}

void AutoSolveTab::pauseChanged(bool checked) {
  SolverEngine(m_session).setPauseCheck(checked);
  m_host.releasePause();
}

void AutoSolveTab::clear() {
  // Clearing takes the puzzle back to its givens by reading it again.
  m_host.runCommand([this] { m_host.puzzleRead(clearCommand(m_session)); });
}

void AutoSolveTab::refreshFromSession() {
  const CommandStates states = commandStates(m_session);
  m_start->setEnabled(states.start);
  m_next->setEnabled(states.next);
  m_solve->setEnabled(states.solve);
  m_edit->setEnabled(states.edit);
  m_clear->setEnabled(states.clear);
  m_pause->setChecked(m_session.controls.PauseCheck);
  m_solveAtOnce->setChecked(m_session.controls.solveAtOnce);
}

void AutoSolveTab::applyColours(const ColourScheme& scheme) {
  paintBackground(this, scheme.statusBack);
  paintBackground(m_frame, scheme.solutionsBack);
}

}  // namespace tessaly
