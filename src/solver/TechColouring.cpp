// Simple colouring.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findColourTrap(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findColourWrap(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
