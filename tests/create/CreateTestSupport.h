#pragma once
// A creation session: its own folder for PuzTemp.sud, a chosen random source, the views' hide/show recorded.

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
