#pragma once

#include <string>

namespace tessaly {

class MainWindow;
class Session;

/// Puts the window into a telling state for one of its tabs ("autosolve": a
/// puzzle half-way through a stepped run; "create": a new puzzle; "manual": a
/// puzzle partly played by hand; "replay": the stepped run with the board of
/// an earlier log line shown; "technique:NAME": the first finding of the
/// technique NAME (as --techniques names it) in the puzzles of `collection`,
/// the shipped collection when empty, replayed), saves a picture of it as PNG
/// and quits the application. Used by scripts/screenshots.sh for the README
/// and the help page.
void scheduleScreenshot(MainWindow& window, Session& session, const std::string& tab, const std::string& file,
                        const std::string& collection = {});

}  // namespace tessaly
