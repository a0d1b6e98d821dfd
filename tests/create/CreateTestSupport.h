#pragma once
// Helpers for the creation tests: a session with a chosen random source and a
// display that records what it was asked to show.

#include <memory>
#include <string>
#include <vector>

#include "model/GridTables.h"
#include "model/Services.h"
#include "model/Session.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly::test {

/// Records the views being hidden and shown.
class RecordingDisplay : public Display {
 public:
  void showViews(bool shown) override { views.push_back(shown); }
  std::vector<bool> views;
};

/// A session whose application folder is a fresh temporary folder.
struct CreateSession {
  explicit CreateSession(std::unique_ptr<RandomSource> source = std::make_unique<SeededRandom>(1))
      : random(std::move(source)), session(Services{&ui, &display, &pacer, &clock, random.get()}) {
    session.writesConfiguration = false;
    session.appDir = dir.path() + "/";
  }
  std::string tempFile() const { return dir.file("PuzTemp.sud"); }

  TempDir dir;
  ScriptedUserInterface ui;
  RecordingDisplay display;
  FixedClock clock;
  CountingPacer pacer;
  std::unique_ptr<RandomSource> random;
  Session session;
};

/// The 81 values of the grid, "." for a blank.
inline std::string gridText(const Session& s) {
  std::string text;
  for (int c = 1; c <= kCells; ++c) text.push_back(s.grid[c].value ? char('0' + s.grid[c].value) : '.');
  return text;
}

inline int blankCells(const Session& s) { return kCells - s.grid.filledCount(); }

/// True when every cell holds a digit and no row, column or box repeats one.
inline bool completeAndValid(Session& s) {
  return s.grid.filledCount() == kCells && SolverEngine(s).givensAreValid();
}

/// The uniform number that makes a draw of 1..n come out as k.
inline double drawFor(int k, int n) { return (k - 0.5) / n; }

}  // namespace tessaly::test
