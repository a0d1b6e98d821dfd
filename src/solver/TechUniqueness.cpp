// Uniqueness: Unique Rectangles and BUG+1.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findUniqueRectangle1(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findUniqueRectangle2(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findUniqueRectangle4(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findBugPlus1(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
