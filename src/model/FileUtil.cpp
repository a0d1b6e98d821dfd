#include "model/FileUtil.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessaly {

namespace fs = std::filesystem;

namespace {

// Why a file of this type is not written or read as a file of puzzles.
std::string typeProblem(mode_t mode) {
  if (S_ISDIR(mode)) return systemReason(EISDIR);
  if (S_ISFIFO(mode)) return "a FIFO, not a regular file";
  if (S_ISCHR(mode) || S_ISBLK(mode)) return "a device, not a regular file";
  if (S_ISSOCK(mode)) return "a socket, not a regular file";
  if (!S_ISREG(mode)) return "not a regular file";
  return {};
}

// Writes every byte, retrying after interruptions and short writes.
FileResult writeAll(int fd, const std::string& content) {
  const char* data = content.data();
  std::size_t left = content.size();
  while (left > 0) {
    const ssize_t n = ::write(fd, data, left);
    if (n < 0) {
      if (errno == EINTR) continue;
      return FileResult::failure(systemReason(errno));
    }
    if (n == 0) return FileResult::failure(systemReason(EIO));
    data += n;
    left -= std::size_t(n);
  }
  return {};
}

// The folder a path lies in, for syncing it after a rename.
std::string folderOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

void syncFolder(const std::string& path) {
  // Not every file system can sync a folder; the rename has happened anyway.
  const int dir = ::open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir < 0) return;
  ::fsync(dir);
  ::close(dir);
}

// Writes the content over the existing file itself, keeping its inode (so its
// hard links, owner and mode). Room for a longer content is reserved first, so
// a full disk is found before any old byte is overwritten.
FileResult rewriteInPlace(const std::string& path, const std::string& content, off_t oldSize) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (fd < 0) return FileResult::failure(systemReason(errno));
  FileResult result;
  if (off_t(content.size()) > oldSize) {
    const int error = ::posix_fallocate(fd, 0, off_t(content.size()));
    if (error != 0 && error != EOPNOTSUPP && error != EINVAL) result = FileResult::failure(systemReason(error));
  }
  if (result) result = writeAll(fd, content);
  if (result && ::ftruncate(fd, off_t(content.size())) != 0) result = FileResult::failure(systemReason(errno));
  if (result && ::fsync(fd) != 0) result = FileResult::failure(systemReason(errno));
  if (::close(fd) != 0 && result) result = FileResult::failure(systemReason(errno));
  return result;
}

// A new file beside `path`, named after it and this process; a name already
// taken (another writer of the same file) moves on to the next.
int createTemporary(const std::string& path, std::string& tmp) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    tmp = path + ".tmp" + std::to_string(::getpid());
    if (attempt > 0) tmp += "-" + std::to_string(attempt);
    const int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  errno = EEXIST;
  return -1;
}

}  // namespace

std::string systemReason(int error) { return std::generic_category().message(error); }

std::string couldNotWriteText(const std::string& path, const FileResult& result) {
  std::string text = "Could not write file: " + path;
  if (!result.reason.empty()) text += " (" + result.reason + ")";
  return text;
}

std::string couldNotReadText(const std::string& path, const std::string& reason) {
  return "Could not read file: " + path + " (" + reason + ")";
}

FileResult writeFileAtomically(const std::string& path, const std::string& content) {
  // Through a symbolic link the file it points at is written, and the link
  // stays; a link that leads nowhere (dangling, or a loop) is an error rather
  // than something to replace with a plain file.
  std::error_code linkError;
  if (fs::is_symlink(fs::symlink_status(path, linkError))) {
    const fs::path target = fs::canonical(path, linkError);
    if (linkError) return FileResult::failure(linkError.message());
    return writeFileAtomically(target.string(), content);
  }
  struct stat old {};
  const bool exists = ::stat(path.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return FileResult::failure(systemReason(errno));
  if (exists) {
    if (std::string problem = typeProblem(old.st_mode); !problem.empty()) return FileResult::failure(problem);
    // A file its owner made read-only stays as it is.
    if (::access(path.c_str(), W_OK) != 0) return FileResult::failure(systemReason(errno));
    if (old.st_nlink > 1) return rewriteInPlace(path, content, old.st_size);
  }

  std::string tmp;
  const int fd = createTemporary(path, tmp);
  if (fd < 0) return FileResult::failure(systemReason(errno));
  const auto fail = [&](FileResult result) {
    ::close(fd);
    ::unlink(tmp.c_str());
    return result;
  };
  if (exists) {
    if (::fchmod(fd, old.st_mode & 07777) != 0) return fail(FileResult::failure(systemReason(errno)));
    struct stat made {};
    if (::fstat(fd, &made) == 0 && (made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
        ::fchown(fd, old.st_uid, old.st_gid) != 0) {
      // A new file cannot take the old one's owner: the old file is written
      // in place instead, so it keeps its owner.
      fail({});
      return rewriteInPlace(path, content, old.st_size);
    }
  }
  if (FileResult written = writeAll(fd, content); !written) return fail(written);
  if (::fsync(fd) != 0) return fail(FileResult::failure(systemReason(errno)));
  if (::close(fd) != 0) {
    const int error = errno;
    ::unlink(tmp.c_str());
    return FileResult::failure(systemReason(error));
  }
  if (::rename(tmp.c_str(), path.c_str()) != 0) {
    const int error = errno;
    ::unlink(tmp.c_str());
    return FileResult::failure(systemReason(error));
  }
  syncFolder(path);
  return {};
}

std::string writeProblem(const std::string& path) {
  std::error_code linkError;
  if (fs::is_symlink(fs::symlink_status(path, linkError))) {
    const fs::path target = fs::canonical(path, linkError);
    if (linkError) return linkError.message();
    return writeProblem(target.string());
  }
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0) {
    if (std::string problem = typeProblem(st.st_mode); !problem.empty()) return problem;
    if (::access(path.c_str(), W_OK) != 0) return systemReason(errno);
  } else if (errno != ENOENT) {
    return systemReason(errno);
  }
  const std::string folder = folderOf(path);
  if (::stat(folder.c_str(), &st) != 0) return systemReason(errno);
  if (!S_ISDIR(st.st_mode)) return systemReason(ENOTDIR);
  if (::access(folder.c_str(), W_OK | X_OK) != 0) return systemReason(errno);
  return {};
}

LockedAppendFile::LockedAppendFile(const std::string& path) {
  struct stat st {};
  if (::lstat(path.c_str(), &st) == 0 && S_ISLNK(st.st_mode) && ::stat(path.c_str(), &st) != 0) {
    // A link that leads nowhere is not followed into a new file.
    m_opened = FileResult::failure(systemReason(errno));
    return;
  }
  if (::stat(path.c_str(), &st) == 0) {
    if (std::string problem = typeProblem(st.st_mode); !problem.empty()) {
      m_opened = FileResult::failure(problem);
      return;
    }
  }
  // Non-blocking, so a FIFO put in place after the look above is not waited on.
  m_fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  if (m_fd < 0) {
    m_opened = FileResult::failure(systemReason(errno));
    return;
  }
  if (::fstat(m_fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    m_opened = FileResult::failure(typeProblem(st.st_mode));
    ::close(m_fd);
    m_fd = -1;
    return;
  }
  ::fcntl(m_fd, F_SETFL, O_WRONLY | O_APPEND);
  while (::flock(m_fd, LOCK_EX) != 0) {
    if (errno == EINTR) continue;
    m_opened = FileResult::failure(systemReason(errno));
    ::close(m_fd);
    m_fd = -1;
    return;
  }
}

LockedAppendFile::~LockedAppendFile() {
  if (m_fd >= 0) ::close(m_fd);  // closing ends the lock
}

FileResult LockedAppendFile::append(const std::string& content) {
  if (!m_opened) return m_opened;
  struct stat before {};
  if (::fstat(m_fd, &before) != 0) return FileResult::failure(systemReason(errno));
  FileResult result = writeAll(m_fd, content);
  if (result && ::fsync(m_fd) != 0) result = FileResult::failure(systemReason(errno));
  // A record cut short by a full disk is taken off again: the file ends as it
  // did before the append.
  if (!result && ::ftruncate(m_fd, before.st_size) == 0) ::fsync(m_fd);
  return result;
}

FileResult appendToFile(const std::string& path, const std::string& content) {
  LockedAppendFile file(path);
  return file.append(content);
}

bool makeFolder(const std::string& folder) {
  std::error_code ec;
  fs::create_directories(folder, ec);
  return fs::is_directory(folder, ec);
}

std::string readProblem(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) return errno == ENOENT ? "no such file" : systemReason(errno);
  if (std::string problem = typeProblem(st.st_mode); !problem.empty()) return problem;
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return systemReason(errno);
  ::close(fd);
  return {};
}

std::optional<std::string> readWholeFile(const std::string& path, long long limit) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return std::nullopt;
  struct stat st {};
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) || (limit >= 0 && st.st_size > limit)) {
    ::close(fd);
    return std::nullopt;
  }
  std::string content;
  content.reserve(std::size_t(st.st_size));
  char buffer[1 << 16];
  for (;;) {
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      ::close(fd);
      return std::nullopt;
    }
    if (n == 0) break;
    content.append(buffer, std::size_t(n));
    // A file that grows while it is read stops at the limit all the same.
    if (limit >= 0 && (long long)content.size() > limit) {
      ::close(fd);
      return std::nullopt;
    }
  }
  ::close(fd);
  return content;
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
