#include "create/Saving.h"

#include "model/CollectionFile.h"
#include "model/Session.h"

namespace tessaly {

namespace {

/// Asks, writes the givens and tells the user. True when written.
bool askAndSave(Session& session) {
  if (!session.ui().question(kSaveQuestion)) return false;
  if (const FileResult written = saveGridToFile(session, session.collection.CurrentFile); !written) {
    session.message(couldNotWriteText(session.collection.CurrentFile, written));
    return false;
  }
  session.message(puzzleAddedMessage(session.collection.TotalPuzzles, session.collection.CurrentFile));
  return true;
}

}  // namespace

std::string puzzleAddedMessage(int total, const std::string& path) {
  return "Puzzle#" + num(total) + " added to file: " + path;
}

bool saveNewCommand(Session& session) {
  if (session.grid.filledCount() == 0) {
    session.message(kCreateFirst);
    return false;
  }
  return askAndSave(session);
}

bool saveThisPuzzleCommand(Session& session) {
  // Only the givens are written, but the grid must be complete: a puzzle is
  // saved once it has been solved, by the solver or by hand.
  if (session.grid.filledCount() < kCells) {
    session.message(kSolveFirst);
    return false;
  }
  if (!askAndSave(session)) return false;
  session.run.ended = {};
  return true;
}

AutoSaveResult autoSaveCommand(Session& session, const AutoSaveRequest& request) {
  AutoSaveResult result;
  result.create = request.create;
  const auto show = [&](const std::string& text) {
    if (request.showNumCreate) request.showNumCreate(text);
  };
  const long long count = request.count;
  PuzzleCreator creator(session);
  try {
    for (long long i = 1; i <= count; ++i) {
      // Each creation runs as if Create had been pressed with the tab as the
      // previous one left it (the blank count rewritten, a Manual fallback selecting
      // Random).
      CreateResult created = creator.createCommand(result.create);
      result.create = created.settings;
      // Only a puzzle that was actually made is saved: a refused blank count or
      // a run that gave up leaves nothing new on the grid.
      if (created.created()) {
        if (const FileResult written = saveGridToFile(session, session.collection.CurrentFile); !written) {
          result.writeFailed = true;
          show(request.countTyped);
          session.message(couldNotWriteText(session.collection.CurrentFile, written));
          return result;
        }
        ++result.saved;
        show(std::to_string(count - i));
      } else if (created.outcome == CreateResult::Outcome::GradeNotReached) {
        // The grade was out of reach in all the tries; the next puzzles would
        // only tell the same. The batch ends on that one message.
        show(request.countTyped);
        result.gradeNotReached = true;
        return result;
      }
      session.processEvents();
    }
  } catch (const RunStopped&) {
    // The window is closing: stop the batch where it is.
    return result;
  }
  show(request.countTyped);
  const int total = session.collection.TotalPuzzles;
  // The title names the last puzzle of the file with the blank count asked
  // for, not one counted in the saved grid; 0 when no number was typed (every
  // creation was refused then).
  session.collection.setOrigin(BoardOrigin::read(total, total, result.create.blanks.value_or(0)));
  // The count told is the number asked for, as typed.
  session.message(request.countTyped + " puzzles added to file: " + session.collection.CurrentFile);
  return result;
}

}  // namespace tessaly
