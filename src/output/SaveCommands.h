#pragma once
// The File menu's exports: the puzzle with its solution saved in one of the
// formats of ExportFormats.h, through the save dialog.

#include <string>

#include "model/FileUtil.h"
#include "output/ExportFormats.h"

namespace tessaly {

class Session;

/// True when all 81 cells hold a value.
bool gridIsComplete(const Session& session);

/// `confirmOverwrite`: a file that exists with a length other than 0 is only
/// overwritten when the user answers Yes to "OverWrite file: " + path + " ?".
/// A missing or empty file needs no question. True to go on.
bool confirmOverwrite(Session& session, const std::string& path);

/// The save command of a format: "There is no solution to save" when a cell is empty; then
/// the file chooser in save mode starting in the application directory
/// (cancel stops silently), confirmOverwrite, the write, and
/// "Puzzle and its solution saved in file: " + path. A failed write shows
/// "Could not write file: " + path and the reason. True when a file was written.
/// The dialog's title, filter and extension come from the format.
bool saveAs(Session& session, const ExportFormat& format);

/// Every line of the event log as it is shown (its text, CR LF each), the
/// lines a hint recorded and the rest alike.
std::string eventLogText(const Session& session);
/// File > Save log as...: the file chooser in save mode (*.txt; cancel stops
/// silently), confirmOverwrite, the write through writeFileAtomically and
/// "Event log saved in file: " + path, or "Could not write file: " + path and
/// the reason. Eventlog.txt is not touched. True when a file was written.
bool saveEventLogAs(Session& session);

}  // namespace tessaly
