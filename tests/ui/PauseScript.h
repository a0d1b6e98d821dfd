#pragma once
// Acts on a window while a stepping run waits: each action runs once, at the
// next pause point the run waits at, as a user clicking there would. The run
// itself blocks the test (it runs inside the click that started it), so the
// actions come from a timer.

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

#include "ui/Form1.h"

namespace tessaly::testing {

class PauseScript {
 public:
  static constexpr int kPollMs = 2;
  static constexpr int kWatchdogMs = 30000;

  explicit PauseScript(Form1& window) : m_window(&window) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
    m_timer.start(kPollMs);
    // A run that never reaches the expected pause points must not hang the tests.
    m_watchdog.setSingleShot(true);
    QObject::connect(&m_watchdog, &QTimer::timeout, [this] {
      timedOut = true;
      if (m_window) m_window->close();
    });
    m_watchdog.start(kWatchdogMs);
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
    const int wait = m_window->pauseWaits();
    if (wait == m_lastWait) return;  // this pause point was acted on already
    m_lastWait = wait;
    auto action = std::move(m_actions.front());
    m_actions.pop_front();
    action();
  }

  QPointer<Form1> m_window;
  QTimer m_timer;
  QTimer m_watchdog;
  std::deque<std::function<void()>> m_actions;
  int m_lastWait = 0;
};

}  // namespace tessaly::testing
