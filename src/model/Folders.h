#pragma once
// Where the program's files live. A copy run from its build folder or from a
// folder of its own (portable) keeps everything beside the executable, as
// always. An installed copy reads its shipped data from ../share/tessaly
// relative to the executable and never writes there: its configuration and
// created puzzles go to the user's own folders. Event logs and printed reports
// go to the working folder when it can take them, else to the user's documents.

#include <functional>
#include <string>

namespace tessaly {

/// The user's own folders, each ending in "/". The window asks the desktop for
/// them; the command line and tests take them from the XDG rules or set them.
struct UserFolders {
  std::string config;     ///< e.g. ~/.config/Tessaly/
  std::string data;       ///< e.g. ~/.local/share/Tessaly/
  std::string documents;  ///< e.g. ~/Documents/, or the home folder
};

/// The folders a session uses; each is empty (meaning: as before, see below)
/// or ends in "/".
struct Folders {
  std::string config;    ///< Quorrel.cfg; empty: the application directory
  std::string userData;  ///< PuzTemp.sud; empty: the application directory
  std::string output;    ///< Eventlog.txt and printed reports; empty: the working folder

  /// The folder of Quorrel.cfg for a session whose application directory is `appDir`.
  std::string configFolder(const std::string& appDir) const { return config.empty() ? appDir : config; }
  /// The folder of PuzTemp.sud, likewise.
  std::string userDataFolder(const std::string& appDir) const { return userData.empty() ? appDir : userData; }
};

/// The user's folders by the XDG base directory rules, from an environment
/// lookup (XDG_CONFIG_HOME, XDG_DATA_HOME, XDG_DOCUMENTS_DIR, HOME); a variable
/// that is unset, empty or not an absolute path counts as unset.
UserFolders xdgUserFolders(const std::function<const char*(const char*)>& environment);

/// The folder of the shipped data for an executable in `executableDir`: the
/// executable's own folder when it holds the default collection or the
/// permutation table, else ../share/tessaly beside it when that exists, else
/// the executable's folder. Ends in "/".
std::string findDataFolder(const std::string& executableDir);

/// True when `dataFolder` is the share/tessaly folder of an installed copy.
bool isInstalledDataFolder(const std::string& dataFolder);

/// True when a file can be created in the folder (tried, then removed).
bool isWritableFolder(const std::string& folder);

/// The folders for a session whose data folder is `dataFolder`: an installed
/// copy, or a data folder that cannot be written, keeps its configuration and
/// created puzzles in the user's folders; the output goes to `workingFolder`
/// when it is writable and not the root, else to the user's documents.
Folders chooseFolders(const std::string& dataFolder, const std::string& workingFolder, const UserFolders& user);

/// The working folder to write into, or the user's documents (see chooseFolders).
std::string chooseOutputFolder(const std::string& workingFolder, const UserFolders& user);

/// `folder` + `name`, with an empty folder meaning the working folder, written
/// as an absolute path so that messages name the file in full.
std::string pathIn(const std::string& folder, const std::string& name);

}  // namespace tessaly
