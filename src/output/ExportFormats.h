#pragma once
// The export formats, listed once: the File menu, the save dialog's filter and
// `tessaly-cli export` (its options and their help) all read this table. A new format is a writer in this
// folder and one row of the table (ExportFormats.cpp).

#include <span>
#include <string>
#include <string_view>

#include "model/FileUtil.h"

namespace tessaly {

class Session;

/// One export format: the puzzle with its solution written as one kind of file.
struct ExportFormat {
  std::string_view name;         ///< "CSV", as the command line's help lists it
  std::string_view extension;    ///< "csv", without the dot; also names the menu entry (mnusave + extension)
  /// Writes the puzzle and its solution, without any dialog, check or message;
  /// the reason when the file could not be written.
  FileResult (*write)(const Session& session, const std::string& path);
  std::string_view menuCaption;  ///< "Save as CSV..."
  std::string_view cliOption;    ///< "--csv"
  std::string_view cliHelp;      ///< what `tessaly-cli export --help` says of the option
  std::string_view dialogTitle;  ///< "Select a CSV file to save Puzzle"
  std::string_view typeName;     ///< "CSV Files", the save dialog's filter beside "*.csv"
};

/// Every export format, in the order of the File menu.
std::span<const ExportFormat> exportFormats();

/// The format a file name asks for by its extension (any letter case); null
/// for any other name.
const ExportFormat* exportFormatForPath(const std::string& path);

/// The format with this extension ("csv"); null when there is none.
const ExportFormat* exportFormatNamed(std::string_view extension);

}  // namespace tessaly
