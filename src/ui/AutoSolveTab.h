#pragma once
// The AutoSolve page: the solutions frame with Start, Next, Solve, the Pause
// and Check3 boxes, Clear and Edit.

#include <functional>

#include "ui/TabPage.h"

class QCheckBox;
class QGroupBox;
class QPushButton;

namespace tessaly {

class RightClickButton;

class AutoSolveTab : public TabPage {
  Q_OBJECT

 public:
  AutoSolveTab(Session& session, CommandHost& host, QWidget* parent = nullptr);

  void refreshFromSession() override;
  void applyColours(const ColourScheme& scheme) override;

  /// The Edit command (`EditCommand`); nothing happens while it is empty.
  std::function<void()> editCommand;

 private:
  void start();
  void nextStep(Qt::MouseButton button);
  void solve();
  void pauseChanged(bool checked);
  void clear();

  QGroupBox* m_frame = nullptr;
  QPushButton* m_start = nullptr;
  RightClickButton* m_next = nullptr;
  QPushButton* m_solve = nullptr;
  QCheckBox* m_pause = nullptr;
  QCheckBox* m_solveAtOnce = nullptr;
  QPushButton* m_clear = nullptr;
  QPushButton* m_edit = nullptr;
};

}  // namespace tessaly
