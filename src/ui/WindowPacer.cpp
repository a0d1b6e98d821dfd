#include "ui/WindowPacer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <utility>

#include "model/Session.h"

namespace tessaly {

WindowPacer::WindowPacer(const Session& session, QObject* window, std::function<void()> onYield,
                         std::function<void()> beforeWait)
    : m_session(session), m_window(window), m_onYield(std::move(onYield)), m_beforeWait(std::move(beforeWait)) {}

bool WindowPacer::processEvents() {
  if (!mayGoOn()) return false;
  // A run without pauses yields after every log line; handling events (and
  // with them a redraw) that often would cost many times the solving, so it is
  // done once per interval. Each run yields at its first line, so that input
  // given as it starts is handled while it runs.
  if (!highlights(m_session.run.mode) && m_sinceYield.isValid() && m_sinceYield.elapsed() < kQuietIntervalMs)
    return true;
  m_sinceYield.start();
  if (m_onYield) m_onYield();
  const QPointer<QObject> window = m_window;
  QCoreApplication::processEvents();
  // Nothing of this object may be touched once the window has gone.
  if (!window) return false;
  return mayGoOn();
}

bool WindowPacer::waitWhilePaused(RunState& runMode) {
  if (!mayGoOn()) return false;
  ++m_waits;
  if (m_beforeWait) m_beforeWait();
  const QPointer<QObject> window = m_window;
  QEventLoop loop;
  QEventLoop* const outer = std::exchange(m_loop, &loop);
  // Next and the Pause box change the run state and then quit the loop; so do
  // closing, a stop and the application quitting (which ends every event loop),
  // which leave the state waiting.
  loop.exec();
  if (!window) return false;  // the window, and this pacer with it, is gone
  m_loop = outer;
  return mayGoOn() && (runMode == RunState::Released || runMode == RunState::NoPause);
}

void WindowPacer::wake() {
  if (m_loop) m_loop->quit();
}

void WindowPacer::requestStop() {
  m_stopRequested = true;
  wake();
}

void WindowPacer::shutDown() {
  m_closing = true;
  wake();
}

}  // namespace tessaly
