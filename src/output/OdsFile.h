#pragma once
// The puzzle and its solution as an OpenDocument spreadsheet (.ods): the sheet
// the BIFF2 export writes, in the zip container every current office suite
// and spreadsheet reader opens.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/FileUtil.h"

namespace tessaly {

class Session;

/// The CRC-32 of zip files (polynomial 0xEDB88320, reflected, inverted).
std::uint32_t zipCrc32(std::string_view bytes);

/// A zip archive of the named entries, in order, each stored uncompressed,
/// without extra fields and dated 1 January 1980 (the same grid gives the same
/// bytes).
std::string storedZip(const std::vector<std::pair<std::string, std::string>>& entries);

/// The sheet's content.xml: "PUZZLE" in row 1 column 2 (bold), the givens in
/// rows 3..11, columns 2..10, "SOLUTION" in row 13 and every cell's value in
/// rows 15..23 (0 for a cell still empty), the digits as centred numbers.
std::string odsContentXml(const Session& session);

/// `writeOdsExport`: the mimetype entry first (stored, as the format asks),
/// the manifest and content.xml. False when the file could not be written.
FileResult writeOdsExport(const Session& session, const std::string& path);

}  // namespace tessaly
