#pragma once
// What the manual-play tests share: a session on the ManualSolve tab with
// puzzle 1 of pe96 read, and a recorder that keeps the display calls and the
// messages in one sequence, so that a test sees what was painted while a
// message was open.

#include <string>
#include <vector>

#include "model/Services.h"
#include "model/Session.h"
#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly::test {


/// Puzzle 1 of pe96 and its solution.
inline const std::string kPe96 = puzzleFile("pe96.sud");
inline const std::string kPe96Solution =
    "483921657967345821251876493548132976729564138136798245372689514814253769695417382";
inline int pe96Solution(int cell) { return kPe96Solution[std::size_t(cell - 1)] - '0'; }

class Recorder : public ManualDisplay, public ScriptedUserInterface {
 public:
  void paintSelected(int cell) override { events.push_back("selected " + std::to_string(cell)); }
  void paintNormal(int cell) override { events.push_back("normal " + std::to_string(cell)); }
  void paintRefused(int cell) override { events.push_back("refused " + std::to_string(cell)); }
  void highlightBox(int box) override { events.push_back("box on " + std::to_string(box)); }
  void unhighlightBox(int box) override { events.push_back("box off " + std::to_string(box)); }
  void repaint() override { events.push_back("repaint"); }
  void message(const std::string& text) override {
    events.push_back("message " + text);
    ScriptedUserInterface::message(text);
  }
  std::vector<std::string> events;
};

/// A session whose messages and paints are recorded, on the ManualSolve tab,
/// with manual play hooked in.
struct ManualSession {
  Recorder recorder;
  FixedClock clock;
  SeededRandom random{1};
  CountingPacer pacer;
  Session session{Services{&recorder, nullptr, &pacer, &clock, &random}};
  ManualPlay play{session, &recorder};
  ManualSession() {
    session.writesConfiguration = false;
    session.controls.currentTab = Tab::ManualSolve;
  }
  bool read(const std::string& path, int number) {
    session.collection.CurrentFile = path;
    const bool ok = readPuzzle(session, path, number);
    recorder.events.clear();
    recorder.messages.clear();
    return ok;
  }
  /// Loads an 81-character grid (digits are givens) as a fresh puzzle would be.
  void load(const std::string& puzzle) {
    for (int c = 1; c <= kCells; ++c) {
      const char ch = puzzle[std::size_t(c - 1)];
      const int v = ch >= '1' && ch <= '9' ? ch - '0' : 0;
      session.grid[c].value = v;
      session.grid[c].given = v != 0;
      session.grid[c].candidates = v ? CandidateSet::of(v) : CandidateSet();
    }
    play.prepare();
  }
  /// Selects the cell and releases the key of the digit.
  void type(int cell, int digit) {
    play.selectCell(cell);
    play.keyReleased(ManualPlay::kDigitKey1 + digit - 1);
  }
};

}  // namespace tessaly::test
