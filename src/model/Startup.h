#pragma once
// The window-free part of start-up. The window calls startUp (or the two halves
// around its own scheme step) after it has built its controls.

#include <functional>
#include <string>

namespace tessaly {

class Session;

/// First half: the start values (MaxTries 250, RuleOrder "23456", no colour
/// scheme, cells-left counter 81), the application directory (a "/" is appended
/// when missing) and readConfiguration, which also sets CurrentFile.
/// The window applies config.ColourSchemeFile after this returns.
void startUpBeforeScheme(Session& session, const std::string& applicationDirectory);

/// Second half, after the scheme is applied: clears the event log, sets the
/// blanking orders and the rule slots to their identity values and finds the
/// default collection. When CurrentFile has a length above 0, TotalPuzzles is its puzzle
/// count, the origin "collection opened" (title "Total Puzzles" + count) and CurrentPuzzleNumber 0; otherwise
/// the message "Default puzzle file not found: " + path is shown and TotalPuzzles
/// is 0. No puzzle is read.
void startUpAfterScheme(Session& session);

/// Both halves in order; applyScheme (when given) runs between them, where the
/// window applies the colour scheme named by config.ColourSchemeFile.
void startUp(Session& session, const std::string& applicationDirectory,
             const std::function<void(Session&)>& applyScheme = {});

}  // namespace tessaly
