// Single-digit patterns: Skyscraper, Two-String Kite, Empty Rectangle.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findSkyscraper(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findTwoStringKite(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findEmptyRectangle(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
