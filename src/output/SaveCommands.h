#pragma once
// The menu commands that save the puzzle with its solution (`mnusavecsv`,
// `mnusavetxt`, `mnusavexls`) and one entry point for saving without dialogs,
// for the command line.

#include <optional>
#include <string>

#include "model/FileUtil.h"

namespace tessaly {

class Session;

/// True when all 81 cells hold a value.
bool gridIsComplete(const Session& session);

/// `confirmOverwrite`: a file that exists with a length other than 0 is only
/// overwritten when the user answers Yes to "OverWrite file: " + path + " ?".
/// A missing or empty file needs no question. True to go on.
bool confirmOverwrite(Session& session, const std::string& path);

/// The save commands: "There is no solution to save" when a cell is empty; then
/// the file chooser in save mode starting in the application directory
/// (cancel stops silently), confirmOverwrite, the write, and
/// "Puzzle and its solution saved in file: " + path. A failed write shows
/// "Could not write file: " + path and the reason. True when a file was written.
bool saveAsCsv(Session& session);
bool saveAsTxt(Session& session);
bool saveAsXls(Session& session);

/// Every line of the event log as it is shown (its text, CR LF each), the
/// lines a hint recorded and the rest alike.
std::string eventLogText(const Session& session);
/// File > Save log as...: the file chooser in save mode (*.txt; cancel stops
/// silently), confirmOverwrite, the write through writeFileAtomically and
/// "Event log saved in file: " + path, or "Could not write file: " + path and
/// the reason. Eventlog.txt is not touched. True when a file was written.
bool saveEventLogAs(Session& session);

/// The export formats.
enum class ExportFormat { Csv, Txt, Xls };
/// The format a file name asks for by its extension (.csv, .txt, .xls, any
/// letter case); nothing for any other name.
std::optional<ExportFormat> exportFormatForPath(const std::string& path);
/// Writes the puzzle and its solution in the given format, without any dialog,
/// check or message (the caller decides about incomplete grids and existing
/// files). The reason when the file could not be written.
FileResult writeExport(const Session& session, ExportFormat format, const std::string& path);

}  // namespace tessaly
