// Forcing chains.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findCellForcingChain(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findUnitForcingChain(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
