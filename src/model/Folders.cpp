#include "model/Folders.h"

#include "model/Configuration.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include <unistd.h>

namespace tessaly {

namespace fs = std::filesystem;

namespace {

constexpr const char* kProgramFolder = "Tessaly/";

std::string withSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder;
}

/// The variable's value when it is an absolute path, else "".
std::string absoluteVariable(const std::function<const char*(const char*)>& environment, const char* name) {
  const char* value = environment(name);
  if (value == nullptr || value[0] != '/') return {};
  return withSlash(value);
}

bool holdsFile(const std::string& folder, const char* name) {
  std::error_code ec;
  return fs::is_regular_file(fs::path(folder) / name, ec);
}

}  // namespace

UserFolders xdgUserFolders(const std::function<const char*(const char*)>& environment) {
  std::string home = absoluteVariable(environment, "HOME");
  if (home.empty()) home = "/tmp/";
  std::string config = absoluteVariable(environment, "XDG_CONFIG_HOME");
  if (config.empty()) config = home + ".config/";
  std::string data = absoluteVariable(environment, "XDG_DATA_HOME");
  if (data.empty()) data = home + ".local/share/";
  std::string documents = absoluteVariable(environment, "XDG_DOCUMENTS_DIR");
  if (documents.empty()) documents = home;
  return {config + kProgramFolder, data + kProgramFolder, documents};
}

std::string findDataFolder(const std::string& executableDir) {
  const std::string own = withSlash(executableDir.empty() ? std::string(".") : executableDir);
  if (holdsFile(own, kDefaultPuzzleFileName) || holdsFile(own, kPermutationFileName)) return own;
  std::error_code ec;
  const fs::path shared = (fs::path(own) / ".." / "share" / "tessaly").lexically_normal();
  if (fs::is_directory(shared, ec)) return withSlash(shared.string());
  return own;
}

bool isInstalledDataFolder(const std::string& dataFolder) {
  const fs::path folder = fs::path(withSlash(dataFolder)).parent_path();
  return folder.filename() == "tessaly" && folder.parent_path().filename() == "share";
}

bool isWritableFolder(const std::string& folder) {
  std::error_code ec;
  const fs::path dir = folder.empty() ? fs::current_path(ec) : fs::path(folder);
  if (ec || !fs::is_directory(dir, ec)) return false;
  const fs::path probe = dir / (".tessaly-write-test-" + std::to_string(::getpid()));
  {
    std::ofstream out(probe, std::ios::binary | std::ios::trunc);
    if (!out) return false;
  }
  fs::remove(probe, ec);
  return true;
}

std::string chooseOutputFolder(const std::string& workingFolder, const UserFolders& user) {
  const std::string working = withSlash(workingFolder);
  if (!working.empty() && working != "/" && isWritableFolder(working)) return working;
  return user.documents;
}

Folders chooseFolders(const std::string& dataFolder, const std::string& workingFolder, const UserFolders& user) {
  Folders folders;
  if (isInstalledDataFolder(dataFolder) || !isWritableFolder(dataFolder)) {
    folders.config = user.config;
    folders.userData = user.data;
  }
  folders.output = chooseOutputFolder(workingFolder, user);
  return folders;
}

std::string pathIn(const std::string& folder, const std::string& name) {
  if (!folder.empty()) return withSlash(folder) + name;
  std::error_code ec;
  const fs::path working = fs::current_path(ec);
  return ec ? name : (working / name).string();
}

}  // namespace tessaly
