#include "output/SaveCommands.h"

#include <filesystem>
#include <system_error>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

std::string chooseSaveFile(Session& session, const ExportFormat& format) {
  FileRequest request;
  request.mode = FileRequest::Mode::Save;
  request.title = format.dialogTitle;
  request.pattern = "*." + std::string(format.extension);
  request.typeName = format.typeName;
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
  std::string path = chooseSaveFile(session, format);
  if (path.empty()) return false;
  if (!confirmOverwrite(session, path)) return false;
  if (!format.write(session, path)) {
    session.message("Could not write file: " + path);
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

}  // namespace tessaly
