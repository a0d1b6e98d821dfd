#include "model/Session.h"

#include "model/Services.h"

namespace tessaly {

Session::Session(Services services) : m_services(services) {
  if (!m_services.ui) {
    m_ownUi = std::make_unique<ScriptedUserInterface>();
    m_services.ui = m_ownUi.get();
  }
  if (!m_services.display) {
    m_ownDisplay = std::make_unique<Display>();
    m_services.display = m_ownDisplay.get();
  }
  if (!m_services.pacer) {
    m_ownPacer = std::make_unique<Pacer>();
    m_services.pacer = m_ownPacer.get();
  }
  if (!m_services.clock) {
    m_ownClock = std::make_unique<SystemClock>();
    m_services.clock = m_ownClock.get();
  }
  if (!m_services.random) {
    m_ownRandom = std::make_unique<ClockMixedRandom>(*m_services.clock);
    m_services.random = m_ownRandom.get();
  }
  for (int i = 0; i <= kCells; ++i) CellOrder[std::size_t(i)] = i;
  for (int i = 0; i <= 9; ++i) DigitOrder[std::size_t(i)] = i;
  for (int i = 0; i <= 9; ++i) BoxPositionOrder[std::size_t(i)] = i;
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
  run.history.clear();
  run.stats.reset();
}

void Session::setPuzzleTitle(int number, int total, int blanks) {
  PuzzleTitle = "Puzzle" + num(number) + " of" + num(total) + " (" + std::to_string(blanks) + " blanks)";
}

}  // namespace tessaly
