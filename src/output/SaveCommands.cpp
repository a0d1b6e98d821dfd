#include "output/SaveCommands.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"
#include "output/ExcelFile.h"
#include "output/TextExport.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

struct SaveKind {
  const char* title;
  const char* pattern;
  const char* typeName;
  ExportFormat format;
};

constexpr SaveKind kCsv{"Select a CSV file to save Puzzle", "*.csv", "CSV Files", ExportFormat::Csv};
constexpr SaveKind kTxt{"Select a TXT file to save Puzzle", "*.txt", "Text Files", ExportFormat::Txt};
constexpr SaveKind kXls{"Select an XLS file to save Puzzle", "*.xls", "Excel Files", ExportFormat::Xls};

std::string chooseSaveFile(Session& session, const SaveKind& kind) {
  FileRequest request;
  request.mode = FileRequest::Mode::Save;
  request.title = kind.title;
  request.pattern = kind.pattern;
  request.typeName = kind.typeName;
  // An installed copy keeps its configuration in the user's folders and
  // cannot write beside its data: its exports start in the output folder.
  request.startDir = session.folders.config.empty() || session.folders.output.empty() ? session.appDir
                                                                                       : session.folders.output;
  // Whatever folder the chooser visits, the working folder stays the one that
  // was current before: reports are written there.
  std::error_code ec;
  fs::path before = fs::current_path(ec);
  std::string path = session.ui().chooseFile(request);
  if (!ec) fs::current_path(before, ec);
  return path;
}

bool saveAs(Session& session, const SaveKind& kind) {
  if (!gridIsComplete(session)) {
    session.message("There is no solution to save");
    return false;
  }
  std::string path = chooseSaveFile(session, kind);
  if (path.empty()) return false;
  if (!confirmOverwrite(session, path)) return false;
  if (const FileResult written = writeExport(session, kind.format, path); !written) {
    session.message(couldNotWriteText(path, written));
    return false;
  }
  session.message("Puzzle and its solution saved in file: " + path);
  return true;
}

}  // namespace

bool gridIsComplete(const Session& session) {
  for (int cell = 1; cell <= kCells; ++cell)
    if (session.grid[cell].value == 0) return false;
  return true;
}

bool confirmOverwrite(Session& session, const std::string& path) {
  // A missing file reads as length -1, an empty one as 0: neither is asked about.
  if (fileLength(path) <= 0) return true;
  return session.ui().question("OverWrite file: " + path + " ?");
}

std::string eventLogText(const Session& session) {
  std::string out;
  for (int n = 1; n <= session.log.TotalLines(); ++n) {
    out += session.log.text(n);
    out += "\r\n";
  }
  return out;
}

bool saveEventLogAs(Session& session) {
  if (session.log.TotalLines() == 0) {
    session.message("The event log is empty");
    return false;
  }
  const std::string path =
      chooseSaveFile(session, SaveKind{"Select a file to save the event log", "*.txt", "Text Files", ExportFormat::Txt});
  if (path.empty()) return false;
  if (!confirmOverwrite(session, path)) return false;
  if (const FileResult written = writeFileAtomically(path, eventLogText(session)); !written) {
    session.message(couldNotWriteText(path, written));
    return false;
  }
  session.message("Event log saved in file: " + path);
  return true;
}

bool saveAsCsv(Session& session) { return saveAs(session, kCsv); }
bool saveAsTxt(Session& session) { return saveAs(session, kTxt); }
bool saveAsXls(Session& session) { return saveAs(session, kXls); }

std::optional<ExportFormat> exportFormatForPath(const std::string& path) {
  std::string ext = fs::path(path).extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char ch) { return char(std::tolower(ch)); });
  if (ext == ".csv") return ExportFormat::Csv;
  if (ext == ".txt") return ExportFormat::Txt;
  if (ext == ".xls") return ExportFormat::Xls;
  return std::nullopt;
}

FileResult writeExport(const Session& session, ExportFormat format, const std::string& path) {
  switch (format) {
    case ExportFormat::Csv:
      return writeCsvExport(session, path);
    case ExportFormat::Txt:
      return writeTxtExport(session, path);
    case ExportFormat::Xls:
      return writeXlsExport(session, path);
  }
  return FileResult::failure("unknown export format");
}

}  // namespace tessaly
