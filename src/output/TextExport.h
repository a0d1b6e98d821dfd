#pragma once
// The puzzle with its solution as plain text: the CSV and TXT exports and the
// framed report ("print to a text file"). All read the grid as it stands: the
// givens are the cells with the given mark, the solution is every cell's value.
// Every line ends with CR LF.

#include <string>

#include "model/FileUtil.h"
#include "model/Interfaces.h"

namespace tessaly {

class Session;

/// "PUZZLE", nine rows of nine quoted fields (a given's digit or nothing),
/// "SOLUTION", nine rows of every cell's digit: 20 lines.
std::string csvExportText(const Session& session);
/// "PUZZLE", nine rows of nine characters (a given's digit, "0" otherwise),
/// "SOLUTION", nine rows of every cell's digit ("0" for a cell still empty).
std::string txtExportText(const Session& session);

/// Writes csvExportText to the file; the reason when it could not be written.
FileResult writeCsvExport(const Session& session, const std::string& path);
/// Writes txtExportText to the file; the reason when it could not be written.
FileResult writeTxtExport(const Session& session, const std::string& path);

/// The report: puzzle grid, optionally the event log up to its recorded line
/// count, the solution grid and the closing line.
std::string reportText(const Session& session, bool includeLog);
/// The report as the printer gets it: the same, but with the whole event log as
/// it stands (every line held, whatever the recorded line count).
std::string printerReportText(const Session& session, bool includeLog);
/// "P#" + number + "@" + hh-mm-ss + ".txt", e.g. P#12@14-05-33.txt.
std::string reportFileName(int puzzleNumber, const TimeOfDay& time);

/// `printToTextFile`: writes the report for the current puzzle into the current
/// working folder under reportFileName(CurrentPuzzleNumber, clock now) and shows
/// "Printed to: " + name. A report of the same puzzle within the same second
/// overwrites the earlier one. On failure shows "Could not write file: " + name
/// and the reason.
/// Returns the file name, or "" when writing failed.
std::string printToTextFile(Session& session, bool includeLog);

}  // namespace tessaly
