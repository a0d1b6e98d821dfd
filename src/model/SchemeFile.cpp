#include "model/SchemeFile.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/FileUtil.h"
#include "model/Text.h"

namespace tessaly {

namespace {

int component(long long value) { return int(std::clamp<long long>(value, 0, 255)); }

/// "r;g;b" with each field read by its numeric value.
Rgb parseLine(std::string_view line) {
  std::array<long long, 3> fields{};
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::size_t end = line.find(';');
    fields[i] = numericValue(line.substr(0, end));
    if (end == std::string_view::npos) break;
    line.remove_prefix(end + 1);
  }
  return Rgb{component(fields[0]), component(fields[1]), component(fields[2])};
}

}  // namespace

Rgb rgb(int red, int green, int blue) { return Rgb{component(red), component(green), component(blue)}; }

std::optional<SchemeEntries> parseSchemeFile(std::string_view text) {
  const std::vector<std::string> lines = splitLines(std::string(text));
  if (int(lines.size()) < kSchemeFileLines) return std::nullopt;
  SchemeEntries entries{};
  for (int i = 1; i <= kSchemeFileLines; ++i) entries[std::size_t(i)] = parseLine(lines[std::size_t(i - 1)]);
  return entries;
}

}  // namespace tessaly
