#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessaly {

/// What a file operation came to: success, or the reason it failed, in the
/// system's words ("No space left on device") or the program's ("not a
/// regular file"). Tests as a bool, so callers that only need to know whether
/// it worked read it as one.
struct FileResult {
  std::string reason;  ///< empty on success
  bool ok() const { return reason.empty(); }
  operator bool() const { return ok(); }  // NOLINT: read as a bool by design
  static FileResult failure(std::string why) { return FileResult{why.empty() ? "unknown error" : std::move(why)}; }
};

/// The system's text for an errno value.
std::string systemReason(int error);
/// "Could not write file: PATH", followed by the reason in brackets when known.
std::string couldNotWriteText(const std::string& path, const FileResult& result);

/// "Could not read file: PATH (reason)".
std::string couldNotReadText(const std::string& path, const std::string& reason);

/// Writes the whole content to a temporary file beside `path`, syncs it and
/// renames it into place (syncing the folder after), so an error never leaves
/// a half-written file. Only regular files are written: a directory, device,
/// FIFO or socket at `path` is refused. An existing file keeps its mode and,
/// where the system allows it, its owner and group; a file with other hard
/// links, or one whose owner a new file could not take, is rewritten in place
/// so its links and owner stay. A file that may not be written is refused, not
/// replaced. Through a symbolic link the file it leads to is written and the
/// link kept (a link that leads nowhere is an error).
FileResult writeFileAtomically(const std::string& path, const std::string& content);

/// Why writing `path` would fail, as far as can be told before writing: a
/// directory or special file there, a file that may not be written, a folder
/// that is missing or may not be written, a link that leads nowhere; empty
/// when nothing stands in the way (the write itself may still fail).
std::string writeProblem(const std::string& path);

/// A regular file opened for appending (created when missing) and held under an
/// exclusive advisory lock until destroyed, so two programs appending at once
/// take turns. Reading the file by its path while the lock is held sees every
/// earlier append whole.
class LockedAppendFile {
 public:
  explicit LockedAppendFile(const std::string& path);
  ~LockedAppendFile();
  LockedAppendFile(const LockedAppendFile&) = delete;
  LockedAppendFile& operator=(const LockedAppendFile&) = delete;

  /// Whether the file is open and locked; otherwise why not.
  const FileResult& opened() const { return m_opened; }
  /// The bytes at the end of the file, written whole with O_APPEND and synced.
  FileResult append(const std::string& content);

 private:
  int m_fd = -1;
  FileResult m_opened;
};

/// Appends to a file (creating it) under LockedAppendFile: only the new bytes
/// are written, the old ones are never rewritten.
FileResult appendToFile(const std::string& path, const std::string& content);

/// Creates the folder and its parents when missing; false when it cannot be made.
bool makeFolder(const std::string& folder);

/// Why `path` cannot be read as a regular file: "no such file", "is a
/// directory", "not a regular file" or the system's reason; empty when it can.
std::string readProblem(const std::string& path);
/// The whole file, or nothing when it cannot be read (or is not a regular file
/// or is larger than `limit` bytes).
std::optional<std::string> readWholeFile(const std::string& path, long long limit = -1);
/// The file's lines; CR LF, LF and CR all end a line.
std::vector<std::string> splitLines(const std::string& content);
/// Size in bytes, or -1 when the file does not exist or cannot be read.
long long fileLength(const std::string& path);
/// The part of a path after its last "/" (the whole path when there is none).
std::string fileNamePart(const std::string& path);

}  // namespace tessaly
