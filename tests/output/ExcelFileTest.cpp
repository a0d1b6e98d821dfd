// The spreadsheet writer: the bytes of each record, the calls that fail, the
// temporary file it writes into, and the whole puzzle export.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>

#include "SolvedGrid.h"
#include "output/ExcelFile.h"

namespace tessaly {
namespace {

using namespace test;

/// Bytes written as pairs of hexadecimal digits; blanks only group the fields.
std::string hex(std::string_view digits) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += digits[i] == ' ' ? 1 : 2)
    if (digits[i] != ' ') bytes += char(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
  return bytes;
}

const std::string kBegin = hex("0900 0400 0200 0A00");
const std::string kEnd = hex("0A00 0000");

long filesIn(const TempDir& dir) {
  return std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator());
}

struct RecordCase {
  const char* name;
  std::function<void(ExcelFile&)> calls;
  const char* records;  ///< what the calls write between the beginning and the end record
};

// A cell record: type, length, row and column (0-based), hidden/locked, font, alignment, value.
const RecordCase kRecords[] = {
    {"nothing", [](ExcelFile&) {}, ""},
    // The flag is 1 only for true: an int 1 is not the all-bits true -1.
    {"grid lines",
     [](ExcelFile& x) { x.PrintGridLines(true); x.PrintGridLines(false); x.PrintGridLines(1); x.PrintGridLines(-1); },
     "2B00 0200 0100  2B00 0200 0000  2B00 0200 0000  2B00 0200 0100"},
    {"protection", [](ExcelFile& x) { x.ProtectSpreadsheet(true); x.ProtectSpreadsheet(1); },
     "1200 0200 0100  1200 0200 0000"},
    // A fraction rounds to the nearest, a half to the even one; a text is read as
    // a number; rows and columns are unsigned, so 65536 and 32769 still fit.
    {"integers",
     [](ExcelFile& x) {
       x.WriteValue(ExcelFile::Integer, 64, 2, 1, 1, 1, -2);
       x.WriteValue(ExcelFile::Integer, 0, 1, 0, 300, 3, 513);
       x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 2.5);
       x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, "7");
       x.WriteValue(ExcelFile::Integer, 0, 0, 0, 65536, 32769, 0);
     },
     "0200 0900 0000 0000 01 40 02 FEFF"
     "0200 0900 2B01 0200 00 00 01 0102"
     "0200 0900 0000 0000 00 00 00 0200"
     "0200 0900 0000 0000 00 00 00 0700"
     "0200 0900 FFFF 0080 00 00 00 0000"},
    {"number", [](ExcelFile& x) { x.WriteValue(ExcelFile::Number, 0, 2, 0, 2, 3, 1.5); },
     "0300 0F00 0100 0200 00 00 02 000000000000F83F"},
    {"texts 'AB' and 42",
     [](ExcelFile& x) {
       x.WriteValue(ExcelFile::Text, 64, 1, 0, 1, 2, "AB");
       x.WriteValue(ExcelFile::Text, 0, 0, 0, 1, 1, 42);
     },
     "0400 0A00 0000 0100 00 40 01 02 4142"
     "0400 0A00 0000 0000 00 00 00 02 3432"},
    {"unknown value type", [](ExcelFile& x) { EXPECT_EQ(x.WriteValue(3, 0, 0, 0, 1, 1, 5), ExcelStatus::Ok); }, ""},
    {"layout: margin, widths, font 'Arial', header 'Hd', footer 'F', password 'pw'",
     [](ExcelFile& x) {
       x.SetMargin(ExcelFile::TopMargin, 1.5); x.SetColumnWidth(1, 10, 6); x.SetFont("Arial", 10, 1);
       x.SetHeader("Hd"); x.SetFooter("F"); x.SetFilePassword("pw");
     },
     "2800 0800 000000000000F83F"
     "2400 0400 00 09 0006"
     "3100 0A00 C800 01 00 05 417269616C"
     "1400 0300 02 4864"
     "1500 0200 01 46"
     "2F00 0200 7077"},
    // A call that fails writes nothing, and the file goes on.
    {"failures",
     [](ExcelFile& x) {
       const std::string tooLong(256, 'a');
       const ExcelStatus overflow = ExcelStatus::Overflow, mismatch = ExcelStatus::TypeMismatch;
       EXPECT_EQ(x.WriteValue(ExcelFile::Text, 0, 0, 0, 1, 1, tooLong), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 32768), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, -32769), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 1e9), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 256, 0, 0, 1, 1, 1), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, "x"), mismatch);
       EXPECT_EQ(x.WriteValue(ExcelFile::Number, 0, 0, 0, 1, 1, "1.5x"), mismatch);
       EXPECT_EQ(x.SetHeader(tooLong), overflow);
       EXPECT_EQ(x.SetFooter(tooLong), overflow);
       EXPECT_EQ(x.SetFont(tooLong, 10, 0), overflow);
       EXPECT_EQ(x.SetColumnWidth(1, 2, 256), overflow);
       EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 32767), ExcelStatus::Ok);
     },
     "0200 0900 0000 0000 00 00 00 FF7F"},
};

TEST(ExcelFile, RecordBytes) {
  for (const RecordCase& c : kRecords) {
    SCOPED_TRACE(c.name);
    TempDir dir;
    {
      ExcelFile xls;
      ASSERT_EQ(xls.CreateFile(dir.file("r.xls")), ExcelStatus::Ok);
      c.calls(xls);
      EXPECT_EQ(xls.CloseFile(), ExcelStatus::Ok);
    }
    EXPECT_EQ(readFile(dir.file("r.xls")), kBegin + hex(c.records) + kEnd);
  }
}

// The records go to a temporary file that only closing (or destroying the
// writer) puts in place, over any earlier file; an abandoned one leaves it alone.
TEST(ExcelFile, WritesThroughATemporaryFile) {
  TempDir dir;
  const std::string path = dir.file("s.xls");
  const std::string gridLines = kBegin + hex("2B00 0200 0100") + kEnd;
  writeFile(path, std::string(100, 'z'));
  {
    ExcelFile xls;
    ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
    xls.PrintGridLines(true);
    EXPECT_EQ(readFile(path), std::string(100, 'z'));
  }
  EXPECT_EQ(readFile(path), gridLines);
  ExcelFile xls;
  ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
  xls.PrintGridLines(false);
  xls.abandon();
  EXPECT_FALSE(xls.isOpen());
  EXPECT_EQ(readFile(path), gridLines);
  EXPECT_EQ(filesIn(dir), 1);
}

TEST(ExcelFile, UnopenableOrClosedFileWritesNothing) {
  TempDir dir;
  ExcelFile xls;
  EXPECT_EQ(xls.CreateFile(dir.file("missing/x.xls")), ExcelStatus::CannotCreate);
  EXPECT_FALSE(xls.isOpen());
  EXPECT_EQ(xls.PrintGridLines(true), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 1), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.CloseFile(), ExcelStatus::NotOpen);
  EXPECT_EQ(filesIn(dir), 0);
}

TEST(XlsExport, WritesTheSolvedGrid) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  ASSERT_TRUE(writeXlsExport(session, dir.file("solved.xls")));
  EXPECT_EQ(readFile(dir.file("solved.xls")), expectedOutput("solved.xls"));
  EXPECT_FALSE(writeXlsExport(session, dir.file("missing/solved.xls")));
}

}  // namespace
}  // namespace tessaly
