#pragma once
// Which of the window's commands a user can give, worked out from the session
// every time the window redraws, so the buttons can never fall out of step
// with what the core is doing.
//
// The rule for commands given while a run is under way: the command ends the
// run first (it stops where it stands, and the board keeps what it placed) and
// then does its own work. So a button is enabled when its command makes sense
// next, judged from the run under way and the board alone:
//
//   run under way   Start  Next  Solve  Clear  Edit   views
//   none            (1)    -     yes    (2)    yes    shown
//   Start's run     -      (3)   yes    -      -      shown
//   Solve's run     -      -     -      -      -      shown
//   creation        -      -     -      -      -      hidden
//
//   (1) while the board has a blank cell
//   (2) while there is a collection puzzle to go back to and the board is no
//       longer that puzzle as read
//   (3) while the run pauses ("No pauses" off)

#include "model/Session.h"

namespace tessaly {

struct CommandStates {
  bool start = false;
  bool next = false;
  bool solve = false;
  bool clear = false;
  bool edit = false;
  bool views = true;  ///< the event log and "Choices for cells" are shown
  friend bool operator==(const CommandStates&, const CommandStates&) = default;
};

CommandStates commandStates(const Session& session);

}  // namespace tessaly
