#pragma once
// The main window: the mode tab strip and the grid of 81 value boxes. It shows
// what the session holds; the core does the work.

#include <QMainWindow>
#include <array>

class QLabel;
class QTabBar;
class QWidget;

namespace tessaly {

class Session;

class Form1 : public QMainWindow {
  Q_OBJECT

 public:
  /// Tab indexes of `ctlTabs`, in the order of the captions.
  enum Tab { AutoSolveTab = 0, CreateTab = 1, ManualSolveTab = 2 };

  explicit Form1(Session& session, QWidget* parent = nullptr);

  /// The value box of cell 1..81.
  QLabel* valueBox(int cell) const { return m_valueBoxes.at(static_cast<std::size_t>(cell - 1)); }

 private:
  QWidget* createGrid();

  Session& m_session;
  QTabBar* m_tabs = nullptr;
  std::array<QLabel*, 81> m_valueBoxes{};  ///< display slot = cell - 1
};

}  // namespace tessaly
