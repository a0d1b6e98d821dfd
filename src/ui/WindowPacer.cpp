#include "ui/WindowPacer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <utility>

#include "model/Session.h"

namespace tessaly {

namespace {

/// Holds back the window's redraw requests while it lives and asks for the
/// redraw again when it ends, so that events are handled without painting.
class RedrawHold : public QObject {
 public:
  explicit RedrawHold(QObject& window) : m_window(&window) { window.installEventFilter(this); }
  ~RedrawHold() override {
    if (!m_window) return;
    m_window->removeEventFilter(this);
    if (m_held) QCoreApplication::postEvent(m_window, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
  }
  RedrawHold(const RedrawHold&) = delete;
  RedrawHold& operator=(const RedrawHold&) = delete;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != m_window || event->type() != QEvent::UpdateRequest) return false;
    m_held = true;
    return true;
  }

 private:
  QPointer<QObject> m_window;
  bool m_held = false;
};

}  // namespace

WindowPacer::WindowPacer(const Session& session, QObject* window, std::function<void()> onYield,
                         std::function<void()> beforeWait)
    : m_session(session), m_window(window), m_onYield(std::move(onYield)), m_beforeWait(std::move(beforeWait)) {}

bool WindowPacer::processEvents() {
  if (!mayGoOn()) return false;
  // A run without pauses yields after every log line; handling events (and
  // with them a redraw) that often would cost many times the solving, so it is
  // done once per interval. Each run yields at its first line, so that input
  // given as it starts is handled while it runs.
  const bool quiet = !highlights(m_session.run.mode);
  if (quiet && m_sinceYield.isValid() && m_sinceYield.elapsed() < kQuietIntervalMs) return true;
  // At the first yield of a run without pauses the window has nothing new to
  // show yet: input is handled, the redraw waits for the next yield or the
  // run's end, so a short Solve draws the window once, not twice.
  const bool firstQuietYield = quiet && !m_sinceYield.isValid();
  m_sinceYield.start();
  if (m_onYield) m_onYield();
  const QPointer<QObject> window = m_window;
  if (firstQuietYield && window) {
    RedrawHold hold(*window);
    QCoreApplication::processEvents();
  } else {
    QCoreApplication::processEvents();
  }
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
