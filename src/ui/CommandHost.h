#pragma once
// What the window offers the controls that run commands: the tab pages and the
// puzzle frame call the core through it, so that commands never overlap.

#include <functional>

namespace tessaly {

struct ReadResult;

class CommandHost {
 public:
  virtual ~CommandHost() = default;
  /// Runs a command that changes the puzzle or starts a run, then redraws. A
  /// run already in progress (waiting for Next, or solving) is ended first and
  /// the command follows once it has unwound.
  virtual void runCommand(std::function<void()> command) = 0;
  /// Next or the Pause box changed the run state: a waiting run sees it now.
  virtual void releasePause() = 0;
  /// Redraws the window from the session.
  virtual void refreshFromSession() = 0;
  /// A read or Clear gave this: an analysed read is remembered in the configuration.
  virtual void puzzleRead(const ReadResult& result) = 0;
};

}  // namespace tessaly
