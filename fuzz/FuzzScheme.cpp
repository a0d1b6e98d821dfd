// Colour scheme files (.sch). Input: the file.
//
// Invariants: fewer than 12 lines give nothing; otherwise every component is
// within 0..255, entries 0 and 13 are black, each entry is its line's fields
// read as numbers and kept to 0..255, and the entries written out as a scheme
// file read back the same.

#include <algorithm>
#include <string>

#include "FuzzSupport.h"
#include "model/SchemeFile.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

/// A field's number: blanks and tabs skipped, an optional sign, the digits
/// that follow (none: 0), kept to 0..255.
int referenceComponent(std::string_view field) {
  std::size_t i = 0;
  while (i < field.size() && (field[i] == ' ' || field[i] == '\t')) ++i;
  bool negative = false;
  if (i < field.size() && (field[i] == '-' || field[i] == '+')) negative = field[i++] == '-';
  long long v = 0;
  for (; i < field.size() && field[i] >= '0' && field[i] <= '9'; ++i) v = std::min(v * 10 + (field[i] - '0'), 1000LL);
  if (negative) v = -v;
  return int(std::clamp(v, 0LL, 255LL));
}

Rgb referenceEntry(std::string_view line) {
  int parts[3] = {0, 0, 0};
  for (int k = 0; k < 3; ++k) {
    const std::size_t end = line.find(';');
    parts[k] = referenceComponent(line.substr(0, end));
    if (end == std::string_view::npos) break;
    line.remove_prefix(end + 1);
  }
  return Rgb{parts[0], parts[1], parts[2]};
}

bool inRange(int v) { return v >= 0 && v <= 255; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = bytesOf(data, size);
  const auto entries = parseSchemeFile(text);
  const std::vector<std::string> lines = referenceLines(text);
  if (lines.size() < std::size_t(kSchemeFileLines)) {
    FUZZ_CHECK(!entries);
    return 0;
  }
  FUZZ_CHECK(entries);
  FUZZ_CHECK((*entries)[0] == Rgb{} && (*entries)[13] == Rgb{});
  std::string written;
  for (int i = 1; i <= kSchemeFileLines; ++i) {
    const Rgb& e = (*entries)[std::size_t(i)];
    FUZZ_CHECK(inRange(e.red) && inRange(e.green) && inRange(e.blue));
    FUZZ_CHECK(e == referenceEntry(lines[std::size_t(i - 1)]));
    written += std::to_string(e.red) + ";" + std::to_string(e.green) + ";" + std::to_string(e.blue) + "\r\n";
  }
  FUZZ_CHECK(parseSchemeFile(written) == entries);
  return 0;
}
