#pragma once
// The small interfaces through which the core reaches the user, the clock and
// chance. The desktop program implements them with widgets; the command line and
// the tests use the do-nothing and scripted ones of Services.h.

#include <optional>
#include <stdexcept>
#include <string>

#include "model/RunState.h"

namespace tessaly {

/// Thrown out of a run when the user interface ends a wait without releasing it
/// (the window is closing): the run stops at once.
class RunStopped : public std::runtime_error {
 public:
  RunStopped() : std::runtime_error("run stopped") {}
};

struct FileRequest {
  enum class Mode { Open, Save };
  Mode mode = Mode::Open;
  std::string title;     ///< "Select a Puzzle file to open" ...
  std::string pattern;   ///< "*.sud"
  std::string typeName;  ///< "SuDoKu Files"
  std::string startDir;  ///< folder shown first
};

/// Message boxes, questions, text input and file choosers.
class UserInterface {
 public:
  virtual ~UserInterface() = default;
  /// A modal message with an OK button; a line break inside is written as '\n'.
  virtual void message(const std::string& text) = 0;
  /// A Yes / No question; true for Yes.
  virtual bool question(const std::string& text) = 0;
  /// A text input dialog; nothing when cancelled.
  virtual std::optional<std::string> textInput(const std::string& title, const std::string& prompt,
                                               const std::string& defaultAnswer) = 0;
  /// A file chooser; the full path, or "" when cancelled.
  virtual std::string chooseFile(const FileRequest& request) = 0;
  /// The busy pointer on or off.
  virtual void setBusy(bool) {}
};

/// How a cell is drawn apart from its ordinary colours.
enum class CellPaint { Normal, Given, Placed, Dead, Retry };

/// Colours and highlighting of the grid and candidate display.
class Display {
 public:
  virtual ~Display() = default;
  /// Colours one area (row, col or box given as non-zero) and the cell.
  virtual void highlightArea(int /*cell*/, int /*row*/, int /*col*/, int /*box*/) {}
  /// Puts the colours saved by highlightArea back.
  virtual void restoreHighlight(int /*cell*/) {}
  /// Paints one cell's value box and candidate label.
  virtual void paintCell(int /*cell*/, CellPaint) {}
  /// Progress bar value (filled cells), 0 resets it.
  virtual void setProgress(int /*value*/) {}
  /// Shows or hides the event-log and candidate views (hidden while creating).
  virtual void showViews(bool) {}
};

/// Where a run yields to the user interface and where it waits in step mode.
class Pacer {
 public:
  virtual ~Pacer() = default;
  /// Lets the user interface handle pending events. False when the run must stop.
  virtual bool processEvents() { return true; }
  /// Called at a pause point with the run Waiting; returns once it is Released
  /// or NoPause (run on). False when the wait ended otherwise: the run must stop.
  virtual bool waitWhilePaused(RunState& runMode) {
    runMode = RunState::Released;
    return true;
  }
};

struct TimeOfDay {
  int hours = 0, minutes = 0, seconds = 0;
  long long ticks = 0;  ///< the finest count the clock has, for seeding
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual TimeOfDay now() const = 0;
};

/// Uniform numbers in [0, 1). Implementations re-seed as they see fit; the
/// desktop one mixes the clock into its running state before every draw.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  virtual double uniform() = 0;
};

/// A draw of 1..n: the integer part of n times a uniform number, plus 1, capped at n.
inline int drawOneTo(RandomSource& random, int n) {
  int k = int(n * random.uniform()) + 1;
  return k > n ? n : k;
}

}  // namespace tessaly
