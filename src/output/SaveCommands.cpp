#include "output/SaveCommands.h"

#include <filesystem>
#include <system_error>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

std::string chooseSaveFile(Session& session, std::string_view title, std::string_view extension,
                           std::string_view typeName) {
  FileRequest request;
  request.mode = FileRequest::Mode::Save;
  request.title = title;
  request.pattern = "*." + std::string(extension);
  request.typeName = typeName;
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

}  // namespace

bool saveAs(Session& session, const ExportFormat& format) {
  if (!gridIsComplete(session)) {
    session.message("There is no solution to save");
    return false;
  }
  std::string path = chooseSaveFile(session, format.dialogTitle, format.extension, format.typeName);
  if (path.empty()) return false;
  if (!confirmOverwrite(session, path)) return false;
  if (const FileResult written = format.write(session, path); !written) {
    session.message(couldNotWriteText(path, written));
    return false;
  }
  session.message("Puzzle and its solution saved in file: " + path);
  return true;
}

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
      chooseSaveFile(session, "Select a file to save the event log", "txt", "Text Files");
  if (path.empty()) return false;
  if (!confirmOverwrite(session, path)) return false;
  if (const FileResult written = writeFileAtomically(path, eventLogText(session)); !written) {
    session.message(couldNotWriteText(path, written));
    return false;
  }
  session.message("Event log saved in file: " + path);
  return true;
}

}  // namespace tessaly
