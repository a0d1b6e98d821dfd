// How long input waits while the window runs a long command. A thread posts an
// event to the window's thread every millisecond, stamped with the time it was
// posted; the window's thread notes how late it handles each one. The counters
// give the largest wait and the 99th percentile over every run of the
// benchmark, with the median length of a run.
//
// The runs: Start with "No pauses" checked and Solve on the hardest shipped
// puzzle allowed 1,000 tries (a narrated run that fills about half the log),
// and a creation that tries for a puzzle of the highest grade (silent runs).

#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <functional>
#include <thread>
#include <vector>

#include "WindowBenchSupport.h"
#include "create/Creation.h"
#include "ui/MainWindow.h"
#include "ui/ObjectNames.h"

namespace {

using namespace tessaly;
using namespace tessaly::bench;
using Clock = std::chrono::steady_clock;

constexpr auto kPostInterval = std::chrono::milliseconds(1);
constexpr int kTries = 1000;

/// Stands for input: an event that carries the time it was posted.
class StampedEvent : public QEvent {
 public:
  static QEvent::Type kind() {
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
  }
  StampedEvent() : QEvent(kind()), posted(Clock::now()) {}
  Clock::time_point posted;
};

/// Lives in the window's thread and notes how long each stamped event waited.
class LatencyProbe : public QObject {
 public:
  bool event(QEvent* event) override {
    if (event->type() != StampedEvent::kind()) return QObject::event(event);
    const auto waited = Clock::now() - static_cast<StampedEvent*>(event)->posted;
    waits.push_back(std::chrono::duration<double, std::milli>(waited).count());
    return true;
  }
  std::vector<double> waits;
};

/// Posts stamped events to the probe from a thread of its own while it lives.
class InputSource {
 public:
  explicit InputSource(LatencyProbe& probe)
      : m_thread([this, &probe] {
          while (!m_stop.load()) {
            QCoreApplication::postEvent(&probe, new StampedEvent);
            std::this_thread::sleep_for(kPostInterval);
          }
        }) {}
  ~InputSource() {
    m_stop = true;
    m_thread.join();
  }

 private:
  std::atomic<bool> m_stop{false};
  std::thread m_thread;
};

double percentile(std::vector<double> values, double share) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  const auto index = std::size_t(std::ceil(share * double(values.size()))) - 1;
  return values[std::min(index, values.size() - 1)];
}

/// Runs `command` (a click that runs to its end) once per iteration, with input
/// arriving all along, and reports the waits of every iteration together.
void measure(benchmark::State& state, MainWindow& window, const std::function<void()>& prepare,
             const std::function<void()>& command) {
  LatencyProbe probe;
  std::vector<double> waits, runs;
  window.show();
  QApplication::processEvents();
  for (auto _ : state) {
    prepare();
    QApplication::processEvents();
    probe.waits.clear();
    const auto begin = Clock::now();
    {
      InputSource input(probe);
      command();
      QApplication::processEvents();  // what came in while the outcome was drawn
    }
    runs.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    QCoreApplication::sendPostedEvents(&probe);
    waits.insert(waits.end(), probe.waits.begin(), probe.waits.end());
  }
  state.counters["events"] = double(waits.size());
  state.counters["max_ms"] = percentile(waits, 1.0);
  state.counters["p99_ms"] = percentile(waits, 0.99);
  state.counters["run_ms"] = percentile(runs, 0.5);
}

template <class Widget>
Widget* child(MainWindow& window, const char* name) {
  return window.findChild<Widget*>(name);
}

void startNoPauses(benchmark::State& state) {
  BenchSession b(kTries);
  MainWindow window(b.session, &b.ui);
  auto* pause = child<QCheckBox>(window, names::PauseCheck);
  measure(
      state, window,
      [&] {
        window.readPuzzleFile(kCollection, kHardest);
        if (!pause->isChecked()) pause->click();
        b.ui.messages.clear();
      },
      [&] { child<QAbstractButton>(window, names::StartCommand)->click(); });
}

void solveLong(benchmark::State& state) {
  BenchSession b(kTries);
  MainWindow window(b.session, &b.ui);
  measure(
      state, window,
      [&] {
        window.readPuzzleFile(kCollection, kHardest);
        b.ui.messages.clear();
      },
      [&] { child<QAbstractButton>(window, names::Solveit)->click(); });
}

void createHighestGrade(benchmark::State& state) {
  BenchSession b(kTries);
  MainWindow window(b.session, &b.ui);
  CreateSettings settings{55, BlankDistribution::Mirror, std::nullopt};
  settings.targetGrade = 5;
  settings.gradeTries = int(state.range(0));
  measure(
      state, window, [&] { b.ui.messages.clear(); },
      [&] { window.runCommand([&] { PuzzleCreator(b.session).createCommand(settings); }); });
}

BENCHMARK(startNoPauses)->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(solveLong)->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(createHighestGrade)->Arg(1000)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
