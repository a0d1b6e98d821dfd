#pragma once
// A ManualSolve session whose paints and messages form one sequence (what was painted while a message was open).

#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly::test {

/// The puzzles of pe96; the solution of its puzzle 1.
inline const std::string kPe96 = puzzleFile("pe96.sud");
inline const std::string kPe96Solution =
    "483921657967345821251876493548132976729564138136798245372689514814253769695417382";

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

struct ManualSession {
  Recorder recorder;
  FixedClock clock;
  SeededRandom random{1};
  CountingPacer pacer;
  Session session{Services{&recorder, nullptr, &pacer, &clock, &random}};
  ManualPlay play{session, &recorder};
  ManualSession() {
    session.controls.currentTab = Tab::ManualSolve;
  }
  /// Reads a puzzle as the window does (manual play starts afresh), forgetting what it painted and said.
  bool read(const std::string& path, int number) {
    session.collection.CurrentFile = path;
    const bool ok = readPuzzle(session, path, number).ready;
    recorder.events.clear();
    recorder.messages.clear();
    return ok;
  }
  /// An 81-character grid (digits are givens) as a fresh puzzle.
  void load(const std::string& puzzle) {
    loadGivens(session, puzzle);
    play.prepare();
  }
  /// Selects the cell and releases the key of the digit.
  void type(int cell, int digit) {
    play.selectCell(cell);
    play.typed(digit);
  }
  /// The move list, one string: "C01 = 4, C02 = 8".
  std::string moves() const {
    std::string text;
    for (const std::string& entry : play.LogManual()) text += (text.empty() ? "" : ", ") + entry;
    return text;
  }
};

}  // namespace tessaly::test
