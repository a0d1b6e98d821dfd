#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessaly {

/// Writes the whole content to a temporary file beside `path` and renames it into
/// place, so an error never leaves a half-written file. Through a symbolic link
/// the file it leads to is written and the link kept. False on any error
/// (a link that leads nowhere included).
bool writeFileAtomically(const std::string& path, const std::string& content);
/// Appends to a file (creating it), through a full rewrite so an error leaves the
/// old content untouched. False on any error.
bool appendFileAtomically(const std::string& path, const std::string& content);
/// Creates the folder and its parents when missing; false when it cannot be made.
bool makeFolder(const std::string& folder);
/// The whole file, or nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);
/// The file's lines; CR LF, LF and CR all end a line.
std::vector<std::string> splitLines(const std::string& content);
/// Size in bytes, or -1 when the file does not exist or cannot be read.
long long fileLength(const std::string& path);
/// The part of a path after its last "/" (the whole path when there is none).
std::string fileNamePart(const std::string& path);

}  // namespace tessaly
