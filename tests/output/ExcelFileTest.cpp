// The spreadsheet writer: record bytes, failure cases and the puzzle export.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "OutputTestSupport.h"
#include "output/ExcelFile.h"

namespace tessaly {
namespace {

using testing::fillSolvedGrid;
using testing::kPatternGivens;
using testing::readFile;
using testing::solvedDigit;
using testing::TempDir;

using Bytes = std::vector<std::uint8_t>;

Bytes bytesOf(const std::string& s) { return Bytes(s.begin(), s.end()); }

Bytes concat(std::initializer_list<Bytes> parts) {
  Bytes out;
  for (const Bytes& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

const Bytes kBeginOfFile = {0x09, 0x00, 0x04, 0x00, 0x02, 0x00, 0x0A, 0x00};
const Bytes kEndOfFile = {0x0A, 0x00, 0x00, 0x00};
// 1.5 as a little-endian IEEE 754 double.
const Bytes kOnePointFive = {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF8, 0x3F};

/// The bytes a file holds after `write` ran between CreateFile and CloseFile.
template <class Write>
Bytes fileWith(const TempDir& dir, Write write) {
  std::string path = dir.file("records.xls");
  {
    ExcelFile xls;
    EXPECT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
    write(xls);
    EXPECT_EQ(xls.CloseFile(), ExcelStatus::Ok);
  }
  return bytesOf(readFile(path));
}

/// The records between the beginning-of-file and end-of-file records.
template <class Write>
Bytes recordsOf(const TempDir& dir, Write write) {
  Bytes all = fileWith(dir, write);
  EXPECT_GE(all.size(), 12u);
  EXPECT_EQ(Bytes(all.begin(), all.begin() + 8), kBeginOfFile);
  EXPECT_EQ(Bytes(all.end() - 4, all.end()), kEndOfFile);
  return Bytes(all.begin() + 8, all.end() - 4);
}

TEST(ExcelFile, EmptyFileIsBeginAndEndRecords) {
  TempDir dir;
  EXPECT_EQ(fileWith(dir, [](ExcelFile&) {}), concat({kBeginOfFile, kEndOfFile}));
}

TEST(ExcelFile, PrintGridLinesTrueWritesFlagOne) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir, [](ExcelFile& x) { EXPECT_EQ(x.PrintGridLines(true), ExcelStatus::Ok); }),
            (Bytes{0x2B, 0x00, 0x02, 0x00, 0x01, 0x00}));
}

TEST(ExcelFile, PrintGridLinesFlagIsOneOnlyForTheAllBitsTrueValue) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.PrintGridLines(false);
                        x.PrintGridLines(1);   // not the Boolean true: writes 0
                        x.PrintGridLines(-1);  // true with all bits set: writes 1
                      }),
            (Bytes{0x2B, 0x00, 0x02, 0x00, 0x00, 0x00, 0x2B, 0x00, 0x02, 0x00, 0x00, 0x00, 0x2B, 0x00, 0x02, 0x00,
                   0x01, 0x00}));
}

TEST(ExcelFile, ProtectSpreadsheetFlag) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.ProtectSpreadsheet(true);
                        x.ProtectSpreadsheet(1);
                      }),
            (Bytes{0x12, 0x00, 0x02, 0x00, 0x01, 0x00, 0x12, 0x00, 0x02, 0x00, 0x00, 0x00}));
}

TEST(ExcelFile, IntegerRecordIsZeroBasedWithAttributesInOrder) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 64, 2, 1, 1, 1, -2), ExcelStatus::Ok);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 1, 0, 300, 3, 513), ExcelStatus::Ok);
                      }),
            (Bytes{0x02, 0x00, 0x09, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01, 0x40, 0x02, 0xFE, 0xFF,  //
                   0x02, 0x00, 0x09, 0x00, 0x2B, 0x01, 0x02, 0x00, 0x00, 0x00, 0x01, 0x01, 0x02}));
}

TEST(ExcelFile, IntegerFromFractionOrTextRoundsToNearestEven) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 2.5);
                        x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, "7");
                      }),
            (Bytes{0x02, 0x00, 0x09, 0x00, 0, 0, 0, 0, 0, 0, 0, 0x02, 0x00,  //
                   0x02, 0x00, 0x09, 0x00, 0, 0, 0, 0, 0, 0, 0, 0x07, 0x00}));
}

TEST(ExcelFile, NumberRecordHoldsADouble) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir, [](ExcelFile& x) { x.WriteValue(ExcelFile::Number, 0, 2, 0, 2, 3, 1.5); }),
            concat({{0x03, 0x00, 0x0F, 0x00, 0x01, 0x00, 0x02, 0x00, 0x00, 0x00, 0x02}, kOnePointFive}));
}

TEST(ExcelFile, TextRecordHasLengthByteAndCharacters) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.WriteValue(ExcelFile::Text, 64, 1, 0, 1, 2, "AB");
                        x.WriteValue(ExcelFile::Text, 0, 0, 0, 1, 1, 42);
                      }),
            (Bytes{0x04, 0x00, 0x0A, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x40, 0x01, 0x02, 'A', 'B',  //
                   0x04, 0x00, 0x0A, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x02, '4', '2'}));
}

TEST(ExcelFile, RowsAndColumnsAboveTheSignedRangeStillFit) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.WriteValue(ExcelFile::Integer, 0, 0, 0, 65536, 32769, 0);
                      }),
            (Bytes{0x02, 0x00, 0x09, 0x00, 0xFF, 0xFF, 0x00, 0x80, 0, 0, 0, 0x00, 0x00}));
}

TEST(ExcelFile, UnknownValueTypeWritesNothing) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir, [](ExcelFile& x) { EXPECT_EQ(x.WriteValue(3, 0, 0, 0, 1, 1, 5), ExcelStatus::Ok); }),
            Bytes{});
}

TEST(ExcelFile, OverflowsWriteNothingAndReportIt) {
  TempDir dir;
  const std::string longText(256, 'a');
  EXPECT_EQ(recordsOf(dir,
                      [&](ExcelFile& x) {
                        EXPECT_EQ(x.WriteValue(ExcelFile::Text, 0, 0, 0, 1, 1, longText), ExcelStatus::Overflow);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 32768), ExcelStatus::Overflow);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, -32769), ExcelStatus::Overflow);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 1e9), ExcelStatus::Overflow);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, "x"), ExcelStatus::TypeMismatch);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Number, 0, 0, 0, 1, 1, "1.5x"), ExcelStatus::TypeMismatch);
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 256, 0, 0, 1, 1, 1), ExcelStatus::Overflow);
                        EXPECT_EQ(x.SetHeader(longText), ExcelStatus::Overflow);
                        EXPECT_EQ(x.SetFooter(longText), ExcelStatus::Overflow);
                        EXPECT_EQ(x.SetFont(longText, 10, 0), ExcelStatus::Overflow);
                        EXPECT_EQ(x.SetColumnWidth(1, 2, 256), ExcelStatus::Overflow);
                        // The file goes on after a failed call.
                        EXPECT_EQ(x.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 32767), ExcelStatus::Ok);
                      }),
            (Bytes{0x02, 0x00, 0x09, 0x00, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0x7F}));
}

TEST(ExcelFile, LayoutRecords) {
  TempDir dir;
  EXPECT_EQ(recordsOf(dir,
                      [](ExcelFile& x) {
                        x.SetMargin(ExcelFile::TopMargin, 1.5);
                        x.SetColumnWidth(1, 10, 6);
                        x.SetFont("Arial", 10, 1);
                        x.SetHeader("Hd");
                        x.SetFooter("F");
                        x.SetFilePassword("pw");
                      }),
            concat({{0x28, 0x00, 0x08, 0x00},
                    kOnePointFive,
                    {0x24, 0x00, 0x04, 0x00, 0x00, 0x09, 0x00, 0x06},
                    {0x31, 0x00, 0x0A, 0x00, 0xC8, 0x00, 0x01, 0x00, 0x05, 'A', 'r', 'i', 'a', 'l'},
                    {0x14, 0x00, 0x03, 0x00, 0x02, 'H', 'd'},
                    {0x15, 0x00, 0x02, 0x00, 0x01, 'F'},
                    {0x2F, 0x00, 0x02, 0x00, 'p', 'w'}}));
}

TEST(ExcelFile, ClosesItselfWhenDestroyedOpen) {
  TempDir dir;
  std::string path = dir.file("auto.xls");
  {
    ExcelFile xls;
    ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
    xls.PrintGridLines(true);
    EXPECT_FALSE(std::filesystem::exists(path));  // still in its temporary file
  }
  EXPECT_EQ(bytesOf(readFile(path)), concat({kBeginOfFile, {0x2B, 0x00, 0x02, 0x00, 0x01, 0x00}, kEndOfFile}));
  // Nothing but the spreadsheet is left in the folder.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator()), 1);
}

TEST(ExcelFile, ReplacesAnExistingFile) {
  TempDir dir;
  std::string path = dir.file("records.xls");
  testing::writeFile(path, std::string(1000, 'z'));
  EXPECT_EQ(fileWith(dir, [](ExcelFile&) {}), concat({kBeginOfFile, kEndOfFile}));
}

TEST(ExcelFile, AbandonedFileLeavesTheEarlierOneAndNoLeftovers) {
  TempDir dir;
  std::string path = dir.file("keep.xls");
  testing::writeFile(path, "earlier");
  {
    ExcelFile xls;
    ASSERT_EQ(xls.CreateFile(path), ExcelStatus::Ok);
    xls.PrintGridLines(true);
    xls.abandon();
    EXPECT_FALSE(xls.isOpen());
  }
  EXPECT_EQ(readFile(path), "earlier");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator()), 1);
}

TEST(ExcelFile, UnopenableFileAndClosedFileAreReported) {
  TempDir dir;
  ExcelFile xls;
  EXPECT_EQ(xls.CreateFile(dir.file("missing/x.xls")), ExcelStatus::CannotCreate);
  EXPECT_FALSE(xls.isOpen());
  EXPECT_EQ(xls.PrintGridLines(true), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.WriteValue(ExcelFile::Integer, 0, 0, 0, 1, 1, 1), ExcelStatus::NotOpen);
  EXPECT_EQ(xls.CloseFile(), ExcelStatus::NotOpen);
  EXPECT_FALSE(std::filesystem::exists(dir.file("missing/x.xls")));
}

// An integer cell record as the export writes it: plain font, centred.
Bytes integerCell(int row0, int col0, int value) {
  return {0x02, 0x00, 0x09, 0x00, std::uint8_t(row0), 0x00, std::uint8_t(col0), 0x00, 0x00, 0x00, 0x02,
          std::uint8_t(value), 0x00};
}

TEST(XlsExport, WritesTheRecordsInOrder) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  std::string path = dir.file("puzzle.xls");
  ASSERT_TRUE(writeXlsExport(session, path));
  Bytes file = bytesOf(readFile(path));

  ASSERT_EQ(file.size(), std::size_t(8 + 6 + 4 * 12 + 2 * 14 + 8 + 18 + 13 * kPatternGivens + 20 + 81 * 13 + 4));

  const Bytes margin = {0x08, 0x00};
  Bytes head = concat({
      kBeginOfFile,
      {0x2B, 0x00, 0x02, 0x00, 0x00, 0x00},
      {0x28, 0x00}, margin, kOnePointFive,
      {0x26, 0x00}, margin, kOnePointFive,
      {0x27, 0x00}, margin, kOnePointFive,
      {0x29, 0x00}, margin, kOnePointFive,
      {0x31, 0x00, 0x0A, 0x00, 0xC8, 0x00, 0x00, 0x00, 0x05, 'A', 'r', 'i', 'a', 'l'},
      {0x31, 0x00, 0x0A, 0x00, 0xC8, 0x00, 0x01, 0x00, 0x05, 'A', 'r', 'i', 'a', 'l'},
      {0x24, 0x00, 0x04, 0x00, 0x00, 0x09, 0x00, 0x06},
      {0x04, 0x00, 0x0E, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x40, 0x01, 0x06, 'P', 'U', 'Z', 'Z', 'L', 'E'},
      integerCell(2, 1, 1),  // row 1, column 1 is a given 1: stored at row 2, column 1
      integerCell(2, 4, 4),
      integerCell(2, 9, 9),
      integerCell(3, 2, 5),
  });
  ASSERT_GE(file.size(), head.size());
  EXPECT_EQ(Bytes(file.begin(), file.begin() + std::ptrdiff_t(head.size())), head);

  // After the givens: the SOLUTION label and all 81 values, then the end.
  Bytes tail = concat({{0x04, 0x00, 0x10, 0x00, 0x0C, 0x00, 0x01, 0x00, 0x00, 0x40, 0x01, 0x08, 'S', 'O', 'L', 'U',
                        'T', 'I', 'O', 'N'}});
  for (int i = 1; i <= 9; ++i)
    for (int j = 1; j <= 9; ++j) tail = concat({tail, integerCell(i + 13, j, solvedDigit(i, j))});
  tail = concat({tail, kEndOfFile});
  EXPECT_EQ(Bytes(file.end() - std::ptrdiff_t(tail.size()), file.end()), tail);
}

TEST(XlsExport, NoGivensMeansNoIntegerRecordsBetweenTheLabels) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  for (int c = 1; c <= kCells; ++c) session.grid[c].given = false;
  std::string path = dir.file("puzzle.xls");
  ASSERT_TRUE(writeXlsExport(session, path));
  Bytes file = bytesOf(readFile(path));
  ASSERT_EQ(file.size(), std::size_t(8 + 6 + 4 * 12 + 2 * 14 + 8 + 18 + 20 + 81 * 13 + 4));
  // The SOLUTION label follows the PUZZLE label directly.
  std::size_t puzzleLabel = 8 + 6 + 4 * 12 + 2 * 14 + 8;
  EXPECT_EQ(file[puzzleLabel + 18], 0x04);
  EXPECT_EQ(file[puzzleLabel + 18 + 11], 0x08);
  EXPECT_EQ(file[puzzleLabel + 18 + 12], 'S');
}

TEST(XlsExport, UnwritablePathFails) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  EXPECT_FALSE(writeXlsExport(session, dir.file("missing/puzzle.xls")));
}

/// True when a program of that name is on PATH.
bool onPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  if (!path) return false;
  std::stringstream dirs(path);
  std::string dir;
  while (std::getline(dirs, dir, ':')) {
    std::error_code ec;
    if (!dir.empty() && std::filesystem::exists(std::filesystem::path(dir) / program, ec)) return true;
  }
  return false;
}

TEST(XlsExport, AnOfficeSuiteReadsTheFile) {
  if (!onPath("soffice")) GTEST_SKIP() << "soffice is not on PATH";
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  std::string xls = dir.file("puzzle.xls");
  ASSERT_TRUE(writeXlsExport(session, xls));
  std::string command = "cd '" + dir.path() + "' && HOME='" + dir.path() +
                        "' soffice -env:UserInstallation=file://" + dir.path() +
                        "/profile --headless --convert-to csv --outdir '" + dir.path() +
                        "' puzzle.xls >/dev/null 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0);
  std::string csv = readFile(dir.file("puzzle.csv"));
  EXPECT_NE(csv.find("PUZZLE"), std::string::npos) << csv;
  EXPECT_NE(csv.find("SOLUTION"), std::string::npos) << csv;
  EXPECT_NE(csv.find("1,2,3,4,5,6,7,8,9"), std::string::npos) << csv;
  EXPECT_NE(csv.find("9,1,2,3,4,5,6,7,8"), std::string::npos) << csv;
  EXPECT_NE(csv.find("8,9,1,2,3,4,5,6,7"), std::string::npos) << csv;  // row 6: all givens
}

}  // namespace
}  // namespace tessaly
