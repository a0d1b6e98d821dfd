#pragma once
// One page of the mode tab strip `ctlTabs`. The window shows the page of the
// selected tab and tells it about redraws, colours and clicks on the grid; what
// a page does with them is its own business.

#include <QWidget>

namespace tessaly {

class ColourScheme;
class CommandHost;
class Session;

class TabPage : public QWidget {
  Q_OBJECT

 public:
  TabPage(Session& session, CommandHost& host, QWidget* parent = nullptr)
      : QWidget(parent), m_session(session), m_host(host) {}

  /// Redraws the page's controls from the session.
  virtual void refreshFromSession() {}
  /// Repaints the page in the scheme's colours.
  virtual void applyColours(const ColourScheme&) {}
  /// The page's tab was selected.
  virtual void pageShown() {}

  // Clicks and keys on the grid while the page is shown.
  virtual void valueBoxClicked(int /*cell*/, Qt::MouseButton) {}
  virtual void valueBoxDoubleClicked(int /*cell*/) {}
  virtual void candidateLabelClicked(int /*cell*/, Qt::MouseButton) {}
  virtual void candidateLabelHovered(int /*cell*/) {}
  /// A click on the frame of box 1..9 of the grid.
  virtual void boxFrameClicked(int /*box*/) {}
  /// A key was released on the grid (which has the focus) while the page is shown.
  virtual void keyReleased(int /*key*/, Qt::KeyboardModifiers) {}

 protected:
  Session& m_session;
  CommandHost& m_host;
};

}  // namespace tessaly
