// The OpenDocument spreadsheet export: a zip any reader can open (the
// mimetype entry first and stored, local headers and a central directory that
// agree) holding the puzzle's givens and the solution's 81 values.

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>
#include <string>
#include <vector>

#include "model/GridTables.h"
#include "model/Session.h"
#include "output/OdsFile.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using namespace test;

std::uint32_t get16(const std::string& b, std::size_t at) {
  return std::uint32_t(std::uint8_t(b.at(at))) | std::uint32_t(std::uint8_t(b.at(at + 1))) << 8;
}
std::uint32_t get32(const std::string& b, std::size_t at) { return get16(b, at) | get16(b, at + 2) << 16; }

struct Entry {
  std::string name, data;
  std::size_t offset;
};

// Reads the archive through its central directory and checks each record
// against its local header; every field the reader relies on is compared.
std::vector<Entry> readStoredZip(const std::string& zip) {
  std::vector<Entry> entries;
  const std::size_t end = zip.size() - 22;
  EXPECT_EQ(get32(zip, end), 0x06054B50u);
  const std::uint32_t count = get16(zip, end + 10), size = get32(zip, end + 12), at = get32(zip, end + 16);
  EXPECT_EQ(get16(zip, end + 8), count);
  EXPECT_EQ(at + size, end);  // the directory ends where the end record begins
  std::size_t p = at;
  for (std::uint32_t i = 0; i < count; ++i) {
    EXPECT_EQ(get32(zip, p), 0x02014B50u);
    const std::uint32_t method = get16(zip, p + 10), crc = get32(zip, p + 16), packed = get32(zip, p + 20),
                        length = get32(zip, p + 24), nameLength = get16(zip, p + 28), offset = get32(zip, p + 42);
    EXPECT_EQ(get16(zip, p + 30) + get16(zip, p + 32), 0u);  // no extra field, no comment
    Entry e{zip.substr(p + 46, nameLength), {}, offset};
    // The local header repeats the directory's fields from the version needed on.
    EXPECT_EQ(get32(zip, offset), 0x04034B50u) << e.name;
    EXPECT_EQ(zip.substr(offset + 4, 26), zip.substr(p + 6, 26)) << e.name;
    p += 46 + nameLength;
    EXPECT_EQ(zip.substr(offset + 30, nameLength), e.name);
    EXPECT_EQ(method, 0u) << e.name;  // stored
    EXPECT_EQ(packed, length) << e.name;
    e.data = zip.substr(offset + 30 + nameLength, length);
    EXPECT_EQ(zipCrc32(e.data), crc) << e.name;
    entries.push_back(e);
  }
  EXPECT_EQ(p, end);
  return entries;
}

TEST(OdsFile, TheCrcIsTheOneZipReadersCheck) {
  EXPECT_EQ(zipCrc32(""), 0u);
  EXPECT_EQ(zipCrc32("123456789"), 0xCBF43926u);
  EXPECT_EQ(zipCrc32("The quick brown fox jumps over the lazy dog"), 0x414FA339u);
}

TEST(OdsFile, AStoredZipWithTheMimetypeFirstAndTheGridInItsContent) {
  TempDir dir;
  Session session;
  // A solved grid; givens on the diagonal of each band's first row.
  for (int r = 1; r <= 9; ++r)
    for (int c = 1; c <= 9; ++c) {
      Cell& cell = session.grid[CellNumber[r][c]];
      cell.value = ((r - 1) * 3 + (r - 1) / 3 + (c - 1)) % 9 + 1;
      cell.given = r == c;
    }
  const std::string path = dir.file("p.ods");
  ASSERT_TRUE(writeOdsExport(session, path));
  const std::string zip = readFile(path);

  const std::vector<Entry> entries = readStoredZip(zip);
  std::string names;
  for (const Entry& e : entries) names += e.name + " ";
  EXPECT_EQ(names, "mimetype META-INF/manifest.xml content.xml ");
  ASSERT_EQ(entries.size(), 3u);
  // Readers find the media type at a fixed place: name at 30, bytes at 38.
  EXPECT_EQ(entries[0].offset, 0u);
  EXPECT_EQ(zip.substr(30, 8 + 46), "mimetypeapplication/vnd.oasis.opendocument.spreadsheet");
  EXPECT_NE(entries[1].data.find("manifest:full-path=\"content.xml\""), std::string::npos);

  // The sheet as rows of cells (",", "|" between): row 1 "PUZZLE" in column 2,
  // the givens in rows 3..11 and every value in rows 15..23, columns 2..10.
  std::string expected = ",PUZZLE||";
  for (int pass = 0; pass < 2; ++pass) {
    for (int r = 1; r <= 9; ++r) {
      for (int c = 1; c <= 9; ++c) {
        const Cell& cell = session.grid[CellNumber[r][c]];
        expected += "," + (pass == 1 || cell.given ? std::to_string(cell.value) : std::string());
      }
      expected += "|";
    }
    if (pass == 0) expected += "|,SOLUTION||";
  }
  std::string sheet;
  const std::string& content = entries[2].data;
  const std::regex row("<table:table-row>(.*?)</table:table-row>");
  const std::regex cell(R"(<table:table-cell[^>]*/>|<table:table-cell[^>]*>(?:<text:p>([^<]*)</text:p>)?</table:table-cell>)");
  for (auto r = std::sregex_iterator(content.begin(), content.end(), row); r != std::sregex_iterator(); ++r) {
    const std::string cells = (*r)[1].str();
    std::string line;
    for (auto c = std::sregex_iterator(cells.begin(), cells.end(), cell); c != std::sregex_iterator(); ++c)
      line += (*c)[1].str() + ",";
    line.pop_back();
    sheet += line + "|";
  }
  EXPECT_EQ(sheet, expected);
  // Numbers are numbers, not texts.
  EXPECT_NE(content.find(R"(office:value-type="float" office:value="5"><text:p>5</text:p>)"), std::string::npos);
}

}  // namespace
}  // namespace tessaly
