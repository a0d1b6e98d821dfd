#pragma once
// Colour scheme files (*.sch): at least 12 lines "red;green;blue", line i
// giving scheme entry i. The window turns the entries into widget colours
// (src/ui/ColourScheme.h); reading the text needs no window.

#include <array>
#include <optional>
#include <string_view>

namespace tessaly {

struct Rgb {
  int red = 0, green = 0, blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// An RGB colour with each component kept to 0..255 (above 255 counts as 255).
Rgb rgb(int red, int green, int blue);

inline constexpr int kSchemeEntries = 14;    ///< scheme entries 0..13
inline constexpr int kSchemeFileLines = 12;  ///< a file fills entries 1..12
using SchemeEntries = std::array<Rgb, kSchemeEntries>;

/// Entries 1..12 from the text of a scheme file: each line split at ";", each
/// field read by its numeric value (missing or non-numeric fields read 0) and
/// kept to 0..255; entries 0 and 13 stay black. Nothing when the text has fewer
/// than 12 lines.
std::optional<SchemeEntries> parseSchemeFile(std::string_view text);

}  // namespace tessaly
