#pragma once
// The puzzle frame `PuzNumber`: its title tells where the puzzle came from; inside are
// what the puzzle is like (`SolutionsLabel`: one solution, several or none;
// `GradeLabel`: its grade), the collection file `FileNow`, the puzzle-number
// box `PuzNumNow` and the previous / next / random buttons (NavButton_0..2).

#include <array>
#include <optional>
#include <string>

#include "create/PuzzleCheck.h"
#include "model/CollectionFile.h"
#include "model/Event.h"
#include "ui/FrameBox.h"

class QLabel;
class QLineEdit;

namespace tessaly {

class ColourScheme;
class CommandHost;
class RightClickButton;
class Session;

class PuzzleFrame : public FrameBox {
  Q_OBJECT

 public:
  PuzzleFrame(Session& session, CommandHost& host, QWidget* parent = nullptr);

  void refreshFromSession();
  /// Judges the givens again (the techniques the grade is measured with changed).
  void judgeAgain();
  void applyColours(const ColourScheme& scheme);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// A previous / next / random button released with the left or right button.
  void navigate(NavButton button, Qt::MouseButton mouseButton);
  /// Enter released in `PuzNumNow`.
  void readTypedNumber();

  Session& m_session;
  CommandHost& m_host;
  QLabel* m_solutions = nullptr;
  QLabel* m_grade = nullptr;
  /// The givens' verdict, taken whenever another puzzle takes the board (the
  /// givens then are the puzzle's: a Solve marks every digit a given later).
  std::optional<PuzzleVerdict> m_verdict;
  Event::Subscription m_puzzleLoaded;
  QLineEdit* m_file = nullptr;
  QLineEdit* m_number = nullptr;
  std::array<RightClickButton*, 3> m_buttons{};
  int m_shownChange = 0;  ///< the origin change last shown in the number box, so typing is not overwritten
  bool m_enterPressed = false;  ///< Enter went down in the number box and is not yet released
};

}  // namespace tessaly
