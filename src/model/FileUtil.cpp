#include "model/FileUtil.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include <unistd.h>

namespace tessaly {

namespace fs = std::filesystem;

bool writeFileAtomically(const std::string& path, const std::string& content) {
  // Through a symbolic link the file it points at is written, and the link
  // stays; a link that leads nowhere (dangling, or a loop) is an error rather
  // than something to replace with a plain file.
  std::error_code linkError;
  if (fs::is_symlink(fs::symlink_status(path, linkError))) {
    const fs::path target = fs::canonical(path, linkError);
    if (linkError) return false;
    return writeFileAtomically(target.string(), content);
  }
  std::string tmp = path + ".tmp" + std::to_string(::getpid());
  {
    std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(content.data(), std::streamsize(content.size()));
    out.flush();
    if (!out) {
      out.close();
      std::error_code ec;
      fs::remove(tmp, ec);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(tmp, path, ec);
  if (ec) {
    fs::remove(tmp, ec);
    return false;
  }
  return true;
}

bool makeFolder(const std::string& folder) {
  std::error_code ec;
  fs::create_directories(folder, ec);
  return fs::is_directory(folder, ec);
}

std::optional<std::string> readWholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream ss;
  ss << in.rdbuf();
  if (in.bad()) return std::nullopt;
  return ss.str();
}

bool appendFileAtomically(const std::string& path, const std::string& content) {
  std::string old;
  if (fileLength(path) > 0) {
    auto existing = readWholeFile(path);
    if (!existing) return false;
    old = std::move(*existing);
  }
  return writeFileAtomically(path, old + content);
}

std::vector<std::string> splitLines(const std::string& content) {
  std::vector<std::string> lines;
  std::string cur;
  for (std::size_t i = 0; i < content.size(); ++i) {
    char ch = content[i];
    if (ch == '\r' || ch == '\n') {
      lines.push_back(std::move(cur));
      cur.clear();
      if (ch == '\r' && i + 1 < content.size() && content[i + 1] == '\n') ++i;
    } else {
      cur.push_back(ch);
    }
  }
  if (!cur.empty()) lines.push_back(std::move(cur));
  return lines;
}

long long fileLength(const std::string& path) {
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) return -1;
  auto size = fs::file_size(path, ec);
  return ec ? -1 : static_cast<long long>(size);
}

std::string fileNamePart(const std::string& path) {
  auto pos = path.find_last_of('/');
  return pos == std::string::npos ? path : path.substr(pos + 1);
}

}  // namespace tessaly
