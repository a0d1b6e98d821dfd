// The spreadsheet writer: the bytes of each record, the calls that fail, the temporary file.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>

#include "output/ExcelFile.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using namespace test;
using X = ExcelFile;

/// Bytes written as pairs of hexadecimal digits; blanks only group the fields.
std::string hex(std::string_view digits) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += digits[i] == ' ' ? 1 : 2)
    if (digits[i] != ' ') bytes += char(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
  return bytes;
}

const std::string kBegin = hex("0900 0400 0200 0A00"), kEnd = hex("0A00 0000");

long filesIn(const TempDir& dir) {
  return std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator());
}

// Every call in turn into one file, each with its status and the record it adds:
// none when it fails, and the file goes on. A cell record: type, length, row and
// column (0-based), hidden/locked, font, alignment, value.
TEST(ExcelFile, EachCallAddsItsRecordAndAFailedCallNothing) {
  const std::string tooLong(256, 'a');
  const ExcelStatus ok = ExcelStatus::Ok, overflow = ExcelStatus::Overflow, mismatch = ExcelStatus::TypeMismatch;
  struct Row { std::function<ExcelStatus(X&)> call; ExcelStatus status; const char* record; };
  const auto value = [](int type, int font, int align, int hidden, long row, long col, const ExcelValue& v) {
    return [=](X& x) { return x.WriteValue(type, font, align, hidden, row, col, v); };
  };
  const Row rows[] = {
      // The flag is 1 only for true: an int 1 is not the all-bits true -1.
      {[](X& x) { return x.PrintGridLines(true); }, ok, "2B00 0200 0100"},
      {[](X& x) { return x.PrintGridLines(false); }, ok, "2B00 0200 0000"},
      {[](X& x) { return x.PrintGridLines(1); }, ok, "2B00 0200 0000"},
      {[](X& x) { return x.PrintGridLines(-1); }, ok, "2B00 0200 0100"},
      {[](X& x) { return x.ProtectSpreadsheet(true); }, ok, "1200 0200 0100"},
      {[](X& x) { return x.ProtectSpreadsheet(1); }, ok, "1200 0200 0000"},
      // A fraction rounds to the nearest, a half to the even one; a text is read as
      // a number; rows and columns are unsigned, so 65536 and 32769 still fit.
      {value(X::Integer, 64, 2, 1, 1, 1, -2), ok, "0200 0900 0000 0000 01 40 02 FEFF"},
      {value(X::Integer, 0, 1, 0, 300, 3, 513), ok, "0200 0900 2B01 0200 00 00 01 0102"},
      {value(X::Integer, 0, 0, 0, 1, 1, 2.5), ok, "0200 0900 0000 0000 00 00 00 0200"},
      {value(X::Integer, 0, 0, 0, 1, 1, "7"), ok, "0200 0900 0000 0000 00 00 00 0700"},
      {value(X::Integer, 0, 0, 0, 65536, 32769, 0), ok, "0200 0900 FFFF 0080 000000 0000"},
      {value(X::Number, 0, 2, 0, 2, 3, 1.5), ok, "0300 0F00 0100 0200 000002 000000000000F83F"},
      {value(X::Text, 64, 1, 0, 1, 2, "AB"), ok, "0400 0A00 0000 0100 00 40 01 02 4142"},
      {value(X::Text, 0, 0, 0, 1, 1, 42), ok, "0400 0A00 0000 0000 00 00 00 02 3432"},
      {value(3, 0, 0, 0, 1, 1, 5), ok, ""},  // no such value type
      {[](X& x) { return x.SetMargin(X::TopMargin, 1.5); }, ok, "2800 0800 000000000000F83F"},
      {[](X& x) { return x.SetColumnWidth(1, 10, 6); }, ok, "2400 0400 00 09 0006"},
      {[](X& x) { return x.SetFont("Arial", 10, 1); }, ok, "3100 0A00 C800 01 00 05 417269616C"},
      {[](X& x) { return x.SetHeader("Hd"); }, ok, "1400 0300 02 4864"},
      {[](X& x) { return x.SetFooter("F"); }, ok, "1500 0200 01 46"},
      {[](X& x) { return x.SetFilePassword("pw"); }, ok, "2F00 0200 7077"},
      {value(X::Text, 0, 0, 0, 1, 1, tooLong), overflow, ""},
      {value(X::Integer, 0, 0, 0, 1, 1, 32768), overflow, ""},
      {value(X::Integer, 0, 0, 0, 1, 1, -32769), overflow, ""},
      {value(X::Integer, 0, 0, 0, 1, 1, 1e9), overflow, ""},
      {value(X::Integer, 256, 0, 0, 1, 1, 1), overflow, ""},
      {value(X::Integer, 0, 0, 0, 1, 1, "x"), mismatch, ""},
      {value(X::Number, 0, 0, 0, 1, 1, "1.5x"), mismatch, ""},
      {[&](X& x) { return x.SetHeader(tooLong); }, overflow, ""},
      {[&](X& x) { return x.SetFooter(tooLong); }, overflow, ""},
      {[&](X& x) { return x.SetFont(tooLong, 10, 0); }, overflow, ""},
      {[](X& x) { return x.SetColumnWidth(1, 2, 256); }, overflow, ""},
      {value(X::Integer, 0, 0, 0, 1, 1, 32767), ok, "0200 0900 0000 0000 000000 FF7F"}};
  TempDir dir;
  std::string expected = kBegin;
  {
    ExcelFile xls;
    ASSERT_EQ(xls.CreateFile(dir.file("r.xls")), ok);
    for (const Row& r : rows) {
      EXPECT_EQ(r.call(xls), r.status) << "the call after " << expected.size() << " bytes";
      expected += hex(r.record);
    }
    EXPECT_EQ(xls.CloseFile(), ok);
  }
  EXPECT_EQ(readFile(dir.file("r.xls")), expected + kEnd);
}

// Only closing (or destroying) the writer puts its temporary file in place; abandoning it leaves the old file.
TEST(ExcelFile, WritesThroughATemporaryFileAndNothingWithoutOne) {
  TempDir dir;
  const std::string path = dir.file("s.xls");
  writeFile(path, std::string(100, 'z'));
  {
    ExcelFile xls;
    ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
    EXPECT_EQ(readFile(path), std::string(100, 'z'));
  }
  EXPECT_EQ(readFile(path), kBegin + kEnd);
  ExcelFile xls;
  ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
  xls.PrintGridLines(false);
  xls.abandon();
  EXPECT_FALSE(xls.isOpen());
  EXPECT_EQ(readFile(path), kBegin + kEnd);
  EXPECT_EQ(filesIn(dir), 1);
  // A file that cannot be made, or is closed, takes nothing.
  EXPECT_EQ(xls.CreateFile(dir.file("missing/x.xls")), ExcelStatus::CannotCreate);
  EXPECT_FALSE(xls.isOpen());
  EXPECT_EQ(xls.PrintGridLines(true), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.WriteValue(X::Integer, 0, 0, 0, 1, 1, 1), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.CloseFile(), ExcelStatus::NotOpen);
  EXPECT_EQ(filesIn(dir), 1);
}

}  // namespace
}  // namespace tessaly
