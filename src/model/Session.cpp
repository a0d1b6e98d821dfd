#include "model/Session.h"

#include "model/Services.h"

namespace tessaly {

struct Session::OwnServices {
  std::unique_ptr<UserInterface> ui;
  std::unique_ptr<Display> display;
  std::unique_ptr<Pacer> pacer;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<RandomSource> random;
};

namespace {
/// Makes the interface when the slot is empty and points the slot at it.
template <typename Made, typename Slot, typename... Args>
void giveDefault(Slot*& slot, std::unique_ptr<Slot>& own, Args&&... args) {
  if (slot) return;
  own = std::make_unique<Made>(std::forward<Args>(args)...);
  slot = own.get();
}
}  // namespace

Session::Session(Services services) : m_services(services), m_own(std::make_unique<OwnServices>()) {
  giveDefault<ScriptedUserInterface>(m_services.ui, m_own->ui);
  giveDefault<Display>(m_services.display, m_own->display);
  giveDefault<Pacer>(m_services.pacer, m_own->pacer);
  if (!m_services.clock) {
    m_own->clock = std::make_unique<SystemClock>();
    m_services.clock = m_own->clock.get();
  }
  giveDefault<ClockMixedRandom>(m_services.random, m_own->random, *m_services.clock);
}

Session::~Session() = default;

void Session::setServices(const Services& services) {
  if (services.ui) m_services.ui = services.ui;
  if (services.display) m_services.display = services.display;
  if (services.pacer) m_services.pacer = services.pacer;
  if (services.clock) m_services.clock = services.clock;
  if (services.random) m_services.random = services.random;
}

void Session::logEvent(int style, std::string_view text, bool wait) {
  if (run.mode == RunState::Silent) return;
  log.append(style, text);
  processEvents();
  if (!highlights(run.mode) || !wait) return;
  run.mode = RunState::Waiting;
  if (!pacer().waitWhilePaused(run.mode)) throw RunStopped();
}

void Session::processEvents() {
  if (!pacer().processEvents()) throw RunStopped();
}

void Session::clearEventLog() {
  hints.clear();
  log.clear();
  run.findings.clear();
  run.techniqueSteps.clear();
  run.history.clear();
  run.stats.reset();
}

}  // namespace tessaly
