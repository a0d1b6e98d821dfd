#pragma once
// A writer of one-sheet spreadsheets in the BIFF2 record format: a flat stream
// of little-endian records, each a 16-bit record type, a 16-bit length of the
// data that follows, and the data, with no padding anywhere. Texts are written
// byte for byte, one byte per character (BIFF2 knows only single-byte character
// codes), so callers pass single-byte text.
//
// The records are gathered in memory and CloseFile writes them through
// writeFileAtomically (replacing any earlier file of that name): a failure
// never leaves a half-written spreadsheet behind.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "model/FileUtil.h"

namespace tessaly {

class Session;

/// What an ExcelFile operation reports. Only Ok means the record was written.
enum class ExcelStatus : int {
  Ok = 0,
  CannotCreate = 1,  ///< CreateFile could not open the file for writing
  NotOpen = 2,       ///< no file is open: nothing written
  Overflow = 3,      ///< a text longer than 255, or a number outside its field: nothing written
  TypeMismatch = 4,  ///< a text that does not read as a number where one is needed: nothing written
  WriteFailed = 5,   ///< the disk refused the data; CloseFile then keeps any earlier file
};

/// The "any value" a cell record is made from: a whole number, a double or a text.
/// WriteValue converts it to the record's value type.
class ExcelValue {
 public:
  ExcelValue(int v) : m_value(static_cast<long long>(v)) {}
  ExcelValue(long v) : m_value(static_cast<long long>(v)) {}
  ExcelValue(long long v) : m_value(v) {}
  ExcelValue(double v) : m_value(v) {}
  ExcelValue(const char* v) : m_value(std::string(v)) {}
  ExcelValue(std::string v) : m_value(std::move(v)) {}

  const std::variant<long long, double, std::string>& value() const { return m_value; }

 private:
  std::variant<long long, double, std::string> m_value;
};

class ExcelFile {
 public:
  /// ValueType of WriteValue.
  enum ValueType : int { Integer = 0, Number = 1, Text = 2 };
  /// Margin record types for SetMargin.
  enum MarginType : int { LeftMargin = 38, RightMargin = 39, TopMargin = 40, BottomMargin = 41 };
  /// Alignment byte of a cell record.
  static constexpr int kAlignLeft = 1;
  static constexpr int kAlignCentre = 2;
  /// CellFontUsed keeps the font index in its top two bits: 64 is the second font defined.
  static constexpr int kSecondFont = 64;
  /// The font attribute byte of SetFont.
  static constexpr int kFontBold = 1;

  ExcelFile() = default;
  ExcelFile(const ExcelFile&) = delete;
  ExcelFile& operator=(const ExcelFile&) = delete;
  /// Closes the file (and puts it in place) when it is still open.
  ~ExcelFile();

  /// Starts a new file and writes the beginning-of-file record 09 00 04 00 02 00 0A 00
  /// (version 2, document type 0x000A: written as is, not the usual worksheet
  /// type 0x0010). An existing file of that name is replaced when the file is closed.
  ExcelStatus CreateFile(const std::string& FileName);
  /// Writes the end-of-file record 0A 00 00 00, closes the file and renames it into place.
  ExcelStatus CloseFile();
  bool isOpen() const { return m_open; }
  /// What the last CloseFile's write came to (the reason when it failed).
  const FileResult& written() const { return m_written; }
  /// Drops the file being written: nothing is put in place, an earlier file stays.
  void abandon();

  /// One cell record. lrow and lcol are 1-based; they are stored 0-based as
  /// unsigned 16-bit numbers, taken modulo 65536 (so 1..65536 all fit).
  /// ValueType Integer converts Value to a 16-bit integer (a fraction rounds to
  /// the nearest, halves to even), Number to a double, Text to text; any other
  /// ValueType writes nothing and is not an error. The three attribute bytes are
  /// passed through: HiddenLocked, CellFontUsed, Alignment (each 0..255).
  ExcelStatus WriteValue(int ValueType, int CellFontUsed, int Alignment, int HiddenLocked, long lrow, long lcol,
                         const ExcelValue& Value);
  /// A margin record: Margin is the record type (38 left, 39 right, 40 top,
  /// 41 bottom), MarginValue the margin in inches.
  ExcelStatus SetMargin(int Margin, double MarginValue);
  /// Columns FirstColumn..LastColumn (1-based) WidthValue characters wide.
  ExcelStatus SetColumnWidth(int FirstColumn, int LastColumn, int WidthValue);
  /// A font: height in points, FontFormat the attribute byte (1 = bold).
  ExcelStatus SetFont(const std::string& FontName, int FontHeight, int FontFormat);
  ExcelStatus SetHeader(const std::string& HeaderText);
  ExcelStatus SetFooter(const std::string& FooterText);
  /// The password's characters without a length byte.
  ExcelStatus SetFilePassword(const std::string& PasswordText);

  // The print-gridlines and protection flags. The flag written is 1 only for a
  // Boolean true held with all bits set (-1); every other value writes 0. In
  // C++ that is two overloads writing the same bytes: a bool, where true writes
  // 1 and false 0; and an int holding the all-bits form, where only -1 writes 1,
  // so an int 1 passed instead of true writes 0.
  ExcelStatus PrintGridLines(bool newvalue) { return writeFlag(kPrintGridLinesRecord, newvalue); }
  ExcelStatus PrintGridLines(int newvalue) { return writeFlag(kPrintGridLinesRecord, newvalue == -1); }
  ExcelStatus ProtectSpreadsheet(bool newvalue) { return writeFlag(kProtectRecord, newvalue); }
  ExcelStatus ProtectSpreadsheet(int newvalue) { return writeFlag(kProtectRecord, newvalue == -1); }

 private:
  static constexpr std::uint16_t kPrintGridLinesRecord = 0x002B;
  static constexpr std::uint16_t kProtectRecord = 0x0012;

  ExcelStatus writeFlag(std::uint16_t type, bool on);
  /// Writes one record (type, data length, data) when a file is open.
  ExcelStatus writeRecord(std::uint16_t type, std::string_view data);
  ExcelStatus writeTextRecord(std::uint16_t type, const std::string& text);

  std::string m_data;  ///< the records so far, written whole when the file is closed
  std::string m_path;
  FileResult m_written;
  bool m_open = false;
};

/// `writeXlsExport`: the puzzle and its solution as a worksheet: "PUZZLE" in
/// row 1 column 2 (bold, left), the givens as centred integers in rows 3..11,
/// columns 2..10, "SOLUTION" in row 13, and every cell's value in rows 15..23
/// (0 for a cell still empty). Without grid lines, margins 1.5 inches, columns
/// 1..10 six characters wide. False when the file could not be written.
FileResult writeXlsExport(const Session& session, const std::string& path);

}  // namespace tessaly
