#pragma once
// Number and text forms used throughout the program's sentences and files.

#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

/// The sentence form of a number: one leading blank before a non-negative
/// number, the minus sign alone before a negative one (" 5", "-3").
std::string num(long long n);
void appendNum(std::string& out, long long n);

/// Decimal text zero-padded to at least `width` digits ("05", "000").
std::string padded(long long n, int width);

/// The number a text starts with: leading blanks skipped, an optional sign,
/// then the longest run of decimal digits (whatever follows is ignored);
/// nothing when no digit comes there.
std::optional<long long> leadingNumber(std::string_view text);
/// The numeric reading of a text: its leadingNumber, 0 when it has none.
long long numericValue(std::string_view text);
/// The numeric reading of one character: its digit, else 0.
constexpr int digitValue(char ch) { return ch >= '0' && ch <= '9' ? ch - '0' : 0; }

/// Text with blanks removed at both ends.
std::string trimmed(std::string_view text);

/// A sentence piece that is a number in the leading-blank form.
struct Num {
  long long value;
};

inline void appendPart(std::string& out, std::string_view part) { out.append(part); }
inline void appendPart(std::string& out, const std::string& part) { out.append(part); }
inline void appendPart(std::string& out, const char* part) { out.append(part); }
inline void appendPart(std::string& out, char part) { out.push_back(part); }
inline void appendPart(std::string& out, Num part) { appendNum(out, part.value); }

/// Joins sentence pieces: texts as they stand, `Num` in the leading-blank form.
template <class... Parts>
std::string sentence(const Parts&... parts) {
  std::string out;
  out.reserve(64);
  (appendPart(out, parts), ...);
  return out;
}

}  // namespace tessaly
