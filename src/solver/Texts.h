#pragma once
// The explanatory texts written into the event log, one line per paragraph.

#include <array>
#include <string_view>

namespace tessaly {

/// Written at start-up.
extern const std::array<std::string_view, 11> kWelcomeText;
/// Written when the user starts a solution.
extern const std::array<std::string_view, 7> kApproachText;

}  // namespace tessaly
