#include "model/Text.h"

#include <charconv>

namespace tessaly {

void appendNum(std::string& out, long long n) {
  if (n >= 0) out.push_back(' ');
  char buf[24];
  auto res = std::to_chars(buf, buf + sizeof buf, n);
  out.append(buf, res.ptr);
}

std::string num(long long n) {
  std::string s;
  appendNum(s, n);
  return s;
}

std::string padded(long long n, int width) {
  std::string digits = std::to_string(n < 0 ? -n : n);
  if (int(digits.size()) < width) digits.insert(0, std::size_t(width) - digits.size(), '0');
  return n < 0 ? "-" + digits : digits;
}

std::optional<long long> leadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
  long long v = 0;
  bool any = false;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    if (v < 100000000000000000LL) v = v * 10 + (text[i] - '0');
    any = true;
  }
  if (!any) return std::nullopt;
  return negative ? -v : v;
}

long long numericValue(std::string_view text) { return leadingNumber(text).value_or(0); }

std::string trimmed(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  return std::string(text.substr(b, e - b));
}

}  // namespace tessaly
