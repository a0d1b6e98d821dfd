#pragma once
// What assistive technology (a screen reader, through Qt's accessibility
// interfaces) learns of the painted parts of the window: each BoardView is a
// table of 81 cells (the candidate display also has its nine box counts after
// them), with the current cell as the focused child; the event log is a list
// of its lines, readable as text too, whose new lines are announced.

#include <QString>
#include <functional>

class QAccessibleEvent;

#include "ui/BoardView.h"

namespace tessaly {

/// The name a screen reader gives cell 0..80: its row and column, then what it
/// holds. "Row 3, column 5: 7, given"; "Row 3, column 5: 7" for a value the
/// solver or the player placed; "Row 3, column 5: empty, choices 1 4 7";
/// "Row 3, column 5: empty" when no choice is known; the player's notes after
/// the choices: "Row 3, column 5: empty, choices 1 4 7, notes 1 7". Everything
/// a cell says is made here, so what it holds beyond these goes here too.
QString spokenCellName(int index, const BoardView::CellState& state);

/// The name of the count beside box 0..8 in the candidate display:
/// "Box 4: 6 digits missing"; "Box 4" while no count is shown.
QString spokenBoxCount(int box, const QString& count);

/// Gives the boards and the event log their accessible interfaces (a factory of
/// Qt's); only the first call does anything.
void installAccessibility();

/// True when something listens to what the window tells assistive
/// technology: the platform's bridge, or a watcher.
bool accessibilityListens();
/// Tells assistive technology of a change (nothing when none listens).
void tellAccessibility(QAccessibleEvent& event);
/// Sees every event told through tellAccessibility, as well as the platform
/// does; an empty function stops watching. For the tests, whose offscreen
/// platform has no bridge that would listen.
void watchAccessibility(std::function<void(QAccessibleEvent&)> watcher);

}  // namespace tessaly
