#pragma once
// The File menu's exports: the puzzle with its solution saved in one of the
// formats of ExportFormats.h, through the save dialog.

#include <string>

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
/// "Could not write file: " + path. True when a file was written.
/// The dialog's title, filter and extension come from the format.
bool saveAs(Session& session, const ExportFormat& format);

}  // namespace tessaly
