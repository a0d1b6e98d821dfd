#include "model/Startup.h"

#include "model/CollectionFile.h"
#include "model/Configuration.h"
#include "model/FileUtil.h"
#include "model/Session.h"
#include "model/Text.h"

namespace tessaly {

void startUpBeforeScheme(Session& session, const std::string& applicationDirectory) {
  // Start values; Quorrel.cfg overrides them below.
  session.config = Configuration{};
  session.BlanksLeft = kCells;

  // An empty directory means the current one, not the file-system root.
  session.appDir = applicationDirectory.empty() ? std::string(".") : applicationDirectory;
  if (session.appDir.back() != '/') session.appDir += '/';

  readConfiguration(session);
}

void startUpAfterScheme(Session& session) {
  session.clearEventLog();

  session.blankingOrders.reset();
  // Rule slot i holds rule i + 1; the solve step reorders them.
  session.run.RuleTable[0] = 0;
  for (int i = 1; i <= 6; ++i) session.run.RuleTable[std::size_t(i)] = i + 1;

  // File errors from here on only mean "no collection".
  const std::string path = session.collection.CurrentFile;
  if (fileLength(path) > 0) {
    session.collection.TotalPuzzles = countPuzzles(path);
    session.collection.setOrigin(BoardOrigin::opened(session.collection.TotalPuzzles));
    session.collection.CurrentPuzzleNumber = 0;
  } else {
    session.collection.TotalPuzzles = 0;
    session.message("Default puzzle file not found: " + path);
  }
}

void startUp(Session& session, const std::string& applicationDirectory,
             const std::function<void(Session&)>& applyScheme) {
  startUpBeforeScheme(session, applicationDirectory);
  if (applyScheme) applyScheme(session);
  startUpAfterScheme(session);
}

}  // namespace tessaly
