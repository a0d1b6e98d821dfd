#pragma once
// Where a run yields to the window, and where a stepping run waits for Next.

#include <QElapsedTimer>
#include <QPointer>
#include <functional>

#include "model/Interfaces.h"

class QEventLoop;
class QObject;

namespace tessaly {

class Session;

class WindowPacer : public Pacer {
 public:
  /// `window` is the object whose end ends every wait; `onYield` runs each time
  /// the run yields (the window schedules a redraw), `beforeWait` when a wait
  /// begins (the window shows the pause point at once).
  WindowPacer(const Session& session, QObject* window, std::function<void()> onYield,
              std::function<void()> beforeWait);

  /// Processes pending events; while the run goes without pauses (99) at most
  /// once per kQuietIntervalMs, the first time at the run's first yield. False
  /// once the window is closing or the run was asked to stop.
  bool processEvents() override;
  /// Waits in a local event loop until Next (1) or the Pause box (99) releases
  /// the run. False when the wait ended otherwise (the window closed or went
  /// away, the application quit, or a stop was asked for).
  bool waitWhilePaused(RunState& runMode) override;

  /// Ends the wait after Next or the Pause box changed the run state.
  void wake();
  /// Ends the run in progress at its next yield or wait.
  void requestStop();
  /// The run in progress is over: later runs may go on, and the next one
  /// yields at its first line whenever it starts.
  void runEnded() {
    m_stopRequested = false;
    m_sinceYield.invalidate();
  }
  /// The window is closing: every run stops, now and later.
  void shutDown();

  bool waiting() const { return m_loop != nullptr; }
  /// Pause points waited at so far.
  int waits() const { return m_waits; }

  /// About one frame: input waits no longer than this and a redraw, and a long
  /// run is drawn about as often as a screen shows it.
  static constexpr int kQuietIntervalMs = 16;

 private:
  bool mayGoOn() const { return !m_closing && !m_stopRequested; }

  const Session& m_session;
  QPointer<QObject> m_window;
  std::function<void()> m_onYield;
  std::function<void()> m_beforeWait;
  QEventLoop* m_loop = nullptr;
  QElapsedTimer m_sinceYield;
  bool m_closing = false;
  bool m_stopRequested = false;
  int m_waits = 0;
};

}  // namespace tessaly
