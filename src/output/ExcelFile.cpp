#include "output/ExcelFile.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <optional>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"

namespace tessaly {

namespace {

constexpr std::uint16_t kBeginOfFileRecord = 0x0009;
constexpr std::uint16_t kBiffVersion = 2;
constexpr std::uint16_t kDocumentType = 0x000A;
constexpr std::uint16_t kEndOfFileRecord = 0x000A;
constexpr std::uint16_t kIntegerRecord = 0x0002;
constexpr std::uint16_t kNumberRecord = 0x0003;
constexpr std::uint16_t kLabelRecord = 0x0004;
constexpr std::uint16_t kColumnWidthRecord = 0x0024;
constexpr std::uint16_t kFontRecord = 0x0031;
constexpr std::uint16_t kHeaderRecord = 0x0014;
constexpr std::uint16_t kFooterRecord = 0x0015;
constexpr std::uint16_t kPasswordRecord = 0x002F;
constexpr std::size_t kMaxShortText = 255;  // texts with a one-byte length

void putU8(std::string& out, unsigned v) { out.push_back(char(v & 0xFF)); }
void putU16(std::string& out, unsigned v) {
  putU8(out, v);
  putU8(out, v >> 8);
}
void putI16(std::string& out, int v) { putU16(out, unsigned(std::uint16_t(std::int16_t(v)))); }
void putDouble(std::string& out, double v) {
  auto bits = std::bit_cast<std::uint64_t>(v);
  for (int i = 0; i < 8; ++i) putU8(out, unsigned(bits >> (8 * i)));
}

bool fitsByte(long long v) { return v >= 0 && v <= 255; }

// 1-based row or column to the stored 0-based unsigned 16-bit number. Folding
// numbers above 32767 into the signed 16-bit range and then taking 1 off gives
// the same bits as this modulo 65536, so rows 1..65536 all fit.
unsigned storedIndex(long oneBased) { return unsigned(std::uint16_t(std::uint32_t(oneBased) - 1u)); }

std::optional<double> parseNumber(const std::string& text) {
  std::size_t b = 0, e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  if (b < e && text[b] == '+') ++b;
  if (b == e) return std::nullopt;
  double v = 0;
  auto [ptr, ec] = std::from_chars(text.data() + b, text.data() + e, v);
  if (ec != std::errc() || ptr != text.data() + e) return std::nullopt;
  return v;
}

struct Converted {
  ExcelStatus status = ExcelStatus::Ok;
  long long integer = 0;
  double number = 0;
  std::string text;
};

Converted toDouble(const ExcelValue& value) {
  Converted c;
  if (auto p = std::get_if<long long>(&value.value())) c.number = double(*p);
  else if (auto d = std::get_if<double>(&value.value())) c.number = *d;
  else if (auto n = parseNumber(std::get<std::string>(value.value()))) c.number = *n;
  else c.status = ExcelStatus::TypeMismatch;
  return c;
}

Converted toInt16(const ExcelValue& value) {
  Converted c;
  if (auto p = std::get_if<long long>(&value.value())) {
    c.integer = *p;
  } else {
    c = toDouble(value);
    if (c.status != ExcelStatus::Ok) return c;
    // Fractions round to the nearest whole number, halves to the even one.
    double r = std::nearbyint(c.number);
    if (!(r >= -32768.0 && r <= 32767.0)) {
      c.status = ExcelStatus::Overflow;
      return c;
    }
    c.integer = static_cast<long long>(r);
  }
  if (c.integer < -32768 || c.integer > 32767) c.status = ExcelStatus::Overflow;
  return c;
}

Converted toText(const ExcelValue& value) {
  Converted c;
  if (auto p = std::get_if<long long>(&value.value())) {
    c.text = std::to_string(*p);
  } else if (auto d = std::get_if<double>(&value.value())) {
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, *d);  // shortest form that reads back
    c.text.assign(buf, res.ptr);
  } else {
    c.text = std::get<std::string>(value.value());
  }
  if (c.text.size() > kMaxShortText) c.status = ExcelStatus::Overflow;
  return c;
}

}  // namespace

ExcelFile::~ExcelFile() {
  if (m_open) CloseFile();
}

ExcelStatus ExcelFile::CreateFile(const std::string& FileName) {
  if (m_open) abandon();
  m_path = FileName;
  m_data.clear();
  m_written = {};
  if (std::string problem = writeProblem(FileName); !problem.empty()) {
    m_written = FileResult::failure(problem);
    return ExcelStatus::CannotCreate;
  }
  m_open = true;
  std::string data;
  putU16(data, kBiffVersion);
  putU16(data, kDocumentType);
  return writeRecord(kBeginOfFileRecord, data);
}

ExcelStatus ExcelFile::CloseFile() {
  if (!m_open) return ExcelStatus::NotOpen;
  writeRecord(kEndOfFileRecord, {});
  m_open = false;
  // The records were gathered in memory: the file is written whole, through
  // the writer every file of the program goes through.
  m_written = writeFileAtomically(m_path, m_data);
  m_data.clear();
  return m_written ? ExcelStatus::Ok : ExcelStatus::WriteFailed;
}

void ExcelFile::abandon() {
  if (!m_open) return;
  m_data.clear();
  m_open = false;
}

ExcelStatus ExcelFile::writeRecord(std::uint16_t type, std::string_view data) {
  if (!m_open) return ExcelStatus::NotOpen;
  putU16(m_data, type);
  putU16(m_data, unsigned(data.size()));
  m_data.append(data);
  return ExcelStatus::Ok;
}

ExcelStatus ExcelFile::WriteValue(int ValueType, int CellFontUsed, int Alignment, int HiddenLocked, long lrow,
                                  long lcol, const ExcelValue& Value) {
  if (!m_open) return ExcelStatus::NotOpen;
  if (ValueType != Integer && ValueType != Number && ValueType != Text) return ExcelStatus::Ok;
  if (!fitsByte(HiddenLocked) || !fitsByte(CellFontUsed) || !fitsByte(Alignment)) return ExcelStatus::Overflow;

  // Convert first, so that a value that does not fit writes nothing at all.
  Converted c = ValueType == Integer ? toInt16(Value) : ValueType == Number ? toDouble(Value) : toText(Value);
  if (c.status != ExcelStatus::Ok) return c.status;

  std::string data;
  putU16(data, storedIndex(lrow));
  putU16(data, storedIndex(lcol));
  putU8(data, unsigned(HiddenLocked));
  putU8(data, unsigned(CellFontUsed));
  putU8(data, unsigned(Alignment));
  switch (ValueType) {
    case Integer:
      putI16(data, int(c.integer));
      return writeRecord(kIntegerRecord, data);
    case Number:
      putDouble(data, c.number);
      return writeRecord(kNumberRecord, data);
    default:
      putU8(data, unsigned(c.text.size()));
      data += c.text;
      return writeRecord(kLabelRecord, data);
  }
}

ExcelStatus ExcelFile::SetMargin(int Margin, double MarginValue) {
  if (Margin < 0 || Margin > 0xFFFF) return ExcelStatus::Overflow;
  std::string data;
  putDouble(data, MarginValue);
  return writeRecord(std::uint16_t(Margin), data);
}

ExcelStatus ExcelFile::SetColumnWidth(int FirstColumn, int LastColumn, int WidthValue) {
  long long width = 256LL * WidthValue;  // in 1/256 of a character
  if (!fitsByte(FirstColumn - 1LL) || !fitsByte(LastColumn - 1LL) || width < 0 || width > 0xFFFF)
    return ExcelStatus::Overflow;
  std::string data;
  putU8(data, unsigned(FirstColumn - 1));
  putU8(data, unsigned(LastColumn - 1));
  putU16(data, unsigned(width));
  return writeRecord(kColumnWidthRecord, data);
}

ExcelStatus ExcelFile::SetFont(const std::string& FontName, int FontHeight, int FontFormat) {
  long long height = 20LL * FontHeight;  // in twentieths of a point
  if (FontName.size() > kMaxShortText || height < 0 || height > 0xFFFF || !fitsByte(FontFormat))
    return ExcelStatus::Overflow;
  std::string data;
  putU16(data, unsigned(height));
  putU8(data, unsigned(FontFormat));
  putU8(data, 0);
  putU8(data, unsigned(FontName.size()));
  data += FontName;
  return writeRecord(kFontRecord, data);
}

ExcelStatus ExcelFile::writeTextRecord(std::uint16_t type, const std::string& text) {
  if (text.size() > kMaxShortText) return ExcelStatus::Overflow;
  std::string data;
  putU8(data, unsigned(text.size()));
  data += text;
  return writeRecord(type, data);
}

ExcelStatus ExcelFile::SetHeader(const std::string& HeaderText) { return writeTextRecord(kHeaderRecord, HeaderText); }

ExcelStatus ExcelFile::SetFooter(const std::string& FooterText) { return writeTextRecord(kFooterRecord, FooterText); }

ExcelStatus ExcelFile::SetFilePassword(const std::string& PasswordText) {
  if (PasswordText.size() > 0xFFFF) return ExcelStatus::Overflow;
  return writeRecord(kPasswordRecord, PasswordText);
}

ExcelStatus ExcelFile::writeFlag(std::uint16_t type, bool on) {
  std::string data;
  putU16(data, on ? 1u : 0u);
  return writeRecord(type, data);
}

FileResult writeXlsExport(const Session& session, const std::string& path) {
  ExcelFile xls;
  if (xls.CreateFile(path) != ExcelStatus::Ok) return xls.written();
  bool ok = true;
  auto check = [&ok](ExcelStatus s) { ok = ok && s == ExcelStatus::Ok; };

  check(xls.PrintGridLines(false));
  check(xls.SetMargin(ExcelFile::TopMargin, 1.5));
  check(xls.SetMargin(ExcelFile::LeftMargin, 1.5));
  check(xls.SetMargin(ExcelFile::RightMargin, 1.5));
  check(xls.SetMargin(ExcelFile::BottomMargin, 1.5));
  check(xls.SetFont("Arial", 10, 0));
  check(xls.SetFont("Arial", 10, ExcelFile::kFontBold));
  check(xls.SetColumnWidth(1, 10, 6));

  const int bold = ExcelFile::kSecondFont;
  check(xls.WriteValue(ExcelFile::Text, bold, ExcelFile::kAlignLeft, 0, 1, 2, "PUZZLE"));
  for (int i = 1; i <= 9; ++i)
    for (int j = 1; j <= 9; ++j) {
      const Cell& cell = session.grid[CellNumber[i][j]];
      if (cell.given) check(xls.WriteValue(ExcelFile::Integer, 0, ExcelFile::kAlignCentre, 0, i + 2, j + 1, cell.value));
    }
  check(xls.WriteValue(ExcelFile::Text, bold, ExcelFile::kAlignLeft, 0, 13, 2, "SOLUTION"));
  for (int i = 1; i <= 9; ++i)
    for (int j = 1; j <= 9; ++j) {
      const Cell& cell = session.grid[CellNumber[i][j]];
      check(xls.WriteValue(ExcelFile::Integer, 0, ExcelFile::kAlignCentre, 0, i + 14, j + 1, cell.value));
    }
  if (!ok) {
    // A spreadsheet with records missing is worse than none.
    xls.abandon();
    return FileResult::failure("a worksheet record could not be made");
  }
  xls.CloseFile();
  return xls.written();
}

}  // namespace tessaly
