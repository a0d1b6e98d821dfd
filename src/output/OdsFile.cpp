#include "output/OdsFile.h"

#include <array>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"

namespace tessaly {

namespace {

constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t n = 0; n < 256; ++n) {
    std::uint32_t c = n;
    for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
    table[n] = c;
  }
  return table;
}();

constexpr std::uint16_t kDate1980 = (0 << 9) | (1 << 5) | 1;  // years since 1980, month, day
constexpr std::uint16_t kZipVersion = 20;                       // 2.0: folders and stored entries

void put16(std::string& out, std::uint32_t v) {
  out += char(v & 0xFF);
  out += char((v >> 8) & 0xFF);
}
void put32(std::string& out, std::uint32_t v) {
  put16(out, v & 0xFFFF);
  put16(out, v >> 16);
}

// The fields a local header and its central directory record share, from the
// version needed up to the extra field's length.
void putEntryFields(std::string& out, const std::string& name, const std::string& data) {
  put16(out, kZipVersion);
  put16(out, 0);  // flags
  put16(out, 0);  // stored
  put16(out, 0);  // time 00:00
  put16(out, kDate1980);
  put32(out, zipCrc32(data));
  put32(out, std::uint32_t(data.size()));  // compressed size: stored, so the same
  put32(out, std::uint32_t(data.size()));
  put16(out, std::uint32_t(name.size()));
  put16(out, 0);  // extra field length
}

constexpr const char* kMimeType = "application/vnd.oasis.opendocument.spreadsheet";

constexpr const char* kManifest =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<manifest:manifest xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" "
    "manifest:version=\"1.2\">\n"
    " <manifest:file-entry manifest:full-path=\"/\" manifest:version=\"1.2\" "
    "manifest:media-type=\"application/vnd.oasis.opendocument.spreadsheet\"/>\n"
    " <manifest:file-entry manifest:full-path=\"content.xml\" manifest:media-type=\"text/xml\"/>\n"
    "</manifest:manifest>\n";

// Columns six characters wide, as the BIFF2 export sets them; a bold heading
// style and a centred one for the digits.
constexpr const char* kContentHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<office:document-content xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
    "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
    "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
    "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
    "xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\" office:version=\"1.2\">\n"
    "<office:automatic-styles>\n"
    "<style:style style:name=\"co1\" style:family=\"table-column\">"
    "<style:table-column-properties style:column-width=\"1.5cm\"/></style:style>\n"
    "<style:style style:name=\"bold\" style:family=\"table-cell\">"
    "<style:text-properties fo:font-weight=\"bold\"/></style:style>\n"
    "<style:style style:name=\"centre\" style:family=\"table-cell\">"
    "<style:paragraph-properties fo:text-align=\"center\"/></style:style>\n"
    "</office:automatic-styles>\n"
    "<office:body><office:spreadsheet><table:table table:name=\"Puzzle\">\n"
    "<table:table-column table:style-name=\"co1\" table:number-columns-repeated=\"10\"/>\n";

constexpr const char* kContentTail = "</table:table></office:spreadsheet></office:body></office:document-content>\n";

constexpr const char* kEmptyCell = "<table:table-cell/>";
constexpr const char* kEmptyRow = "<table:table-row><table:table-cell/></table:table-row>\n";

std::string headingRow(const char* text) {
  return std::string("<table:table-row>") + kEmptyCell + "<table:table-cell table:style-name=\"bold\" "
         "office:value-type=\"string\"><text:p>" + text + "</text:p></table:table-cell></table:table-row>\n";
}

std::string numberCell(int value) {
  const std::string v = std::to_string(value);
  return "<table:table-cell table:style-name=\"centre\" office:value-type=\"float\" office:value=\"" + v +
         "\"><text:p>" + v + "</text:p></table:table-cell>";
}

// A row of the grid from column 2 on: the cells `shown` accepts as numbers,
// the others empty.
template <class Shown>
std::string gridRow(const Session& session, int row, Shown shown) {
  std::string out = std::string("<table:table-row>") + kEmptyCell;
  for (int col = 1; col <= 9; ++col) {
    const Cell& cell = session.grid[CellNumber[row][col]];
    out += shown(cell) ? numberCell(cell.value) : kEmptyCell;
  }
  return out + "</table:table-row>\n";
}

}  // namespace

std::uint32_t zipCrc32(std::string_view bytes) {
  std::uint32_t c = 0xFFFFFFFFu;
  for (unsigned char b : bytes) c = kCrcTable[(c ^ b) & 0xFF] ^ (c >> 8);
  return c ^ 0xFFFFFFFFu;
}

std::string storedZip(const std::vector<std::pair<std::string, std::string>>& entries) {
  std::string out, directory;
  for (const auto& [name, data] : entries) {
    const std::uint32_t offset = std::uint32_t(out.size());
    put32(out, 0x04034B50);  // local file header
    putEntryFields(out, name, data);
    out += name;
    out += data;

    put32(directory, 0x02014B50);  // central directory record
    put16(directory, kZipVersion);  // made by: 2.0, MS-DOS attributes
    putEntryFields(directory, name, data);
    put16(directory, 0);  // comment length
    put16(directory, 0);  // disk number
    put16(directory, 0);  // internal attributes
    put32(directory, 0);  // external attributes
    put32(directory, offset);
    directory += name;
  }
  const std::uint32_t directoryOffset = std::uint32_t(out.size());
  out += directory;
  put32(out, 0x06054B50);  // end of central directory
  put16(out, 0);           // this disk
  put16(out, 0);           // the disk the directory starts on
  put16(out, std::uint32_t(entries.size()));
  put16(out, std::uint32_t(entries.size()));
  put32(out, std::uint32_t(directory.size()));
  put32(out, directoryOffset);
  put16(out, 0);  // comment length
  return out;
}

std::string odsContentXml(const Session& session) {
  std::string xml = kContentHead;
  xml += headingRow("PUZZLE");
  xml += kEmptyRow;
  for (int row = 1; row <= 9; ++row) xml += gridRow(session, row, [](const Cell& cell) { return cell.given; });
  xml += kEmptyRow;
  xml += headingRow("SOLUTION");
  xml += kEmptyRow;
  for (int row = 1; row <= 9; ++row) xml += gridRow(session, row, [](const Cell&) { return true; });
  return xml + kContentTail;
}

FileResult writeOdsExport(const Session& session, const std::string& path) {
  return writeFileAtomically(path, storedZip({{"mimetype", kMimeType},
                                              {"META-INF/manifest.xml", kManifest},
                                              {"content.xml", odsContentXml(session)}}));
}

}  // namespace tessaly
