#pragma once
// A session for the creation tests: a fresh application folder for PuzTemp.sud,
// a random source of the test's choosing and a display that records when the
// views are hidden and shown.

#include <memory>
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace tessaly::test {

struct RecordingDisplay : Display {
  void showViews(bool shown) override { views.push_back(shown); }
  std::vector<bool> views;
};

struct CreateSession {
  explicit CreateSession(std::unique_ptr<RandomSource> source = std::make_unique<SeededRandom>(1))
      : random(std::move(source)), session(Services{&ui, &display, &pacer, &clock, random.get()}) {
    session.writesConfiguration = false;
    session.appDir = dir.dir();
  }
  explicit CreateSession(std::uint64_t seed) : CreateSession(std::make_unique<SeededRandom>(seed)) {}
  std::string tempFile() const { return dir.file("PuzTemp.sud"); }

  TempDir dir;
  ScriptedUserInterface ui;
  RecordingDisplay display;
  FixedClock clock;
  CountingPacer pacer;
  std::unique_ptr<RandomSource> random;
  Session session;
};

inline int blankCells(const Session& s) { return kCells - s.grid.filledCount(); }

}  // namespace tessaly::test
