#pragma once
// The puzzle frame `PuzNumber`: its title is the PuzzleTitle; inside are the
// collection file `FileNow`, the puzzle-number box `PuzNumNow` and the
// previous / next / random buttons (NavButton_0..2).

#include <QGroupBox>
#include <array>
#include <string>

#include "model/CollectionFile.h"

class QLineEdit;

namespace tessaly {

class ColourScheme;
class CommandHost;
class RightClickButton;
class Session;

class PuzzleFrame : public QGroupBox {
  Q_OBJECT

 public:
  PuzzleFrame(Session& session, CommandHost& host, QWidget* parent = nullptr);

  void refreshFromSession();
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
  QLineEdit* m_file = nullptr;
  QLineEdit* m_number = nullptr;
  std::array<RightClickButton*, 3> m_buttons{};
  std::string m_shownNumber;  ///< PuzNumNow as last drawn, so typing is not overwritten
};

}  // namespace tessaly
