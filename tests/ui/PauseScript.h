#pragma once
// Acts on a window while a stepping run waits: each action runs once, at the
// next pause point the run waits at, as a user clicking there would. The run
// blocks the test (it runs inside the click that started it), so the actions
// come from a timer; a watchdog closes the window if they never all run.

#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

#include "ui/MainWindow.h"

namespace tessaly::testing {

class PauseScript {
 public:
  explicit PauseScript(MainWindow& window) : m_window(&window) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
    m_timer.start(2);
    m_watchdog.setSingleShot(true);
    QObject::connect(&m_watchdog, &QTimer::timeout, [this] {
      timedOut = true;
      if (m_window) m_window->close();
    });
    m_watchdog.start(30000);
  }

  /// Adds an action for the next pause point not yet acted on.
  PauseScript& atPause(std::function<void()> action) {
    m_actions.push_back(std::move(action));
    return *this;
  }
  bool done() const { return m_actions.empty(); }
  bool timedOut = false;

 private:
  void poll() {
    if (!m_window || !m_window->isWaiting() || m_actions.empty()) return;
    if (m_window->pauseWaits() == m_lastWait) return;  // this pause point was acted on already
    m_lastWait = m_window->pauseWaits();
    auto action = std::move(m_actions.front());
    m_actions.pop_front();
    action();
  }

  QPointer<MainWindow> m_window;
  QTimer m_timer, m_watchdog;
  std::deque<std::function<void()>> m_actions;
  int m_lastWait = 0;
};

}  // namespace tessaly::testing
