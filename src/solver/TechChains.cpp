// Chains: X-Chains, XY-Chains and alternating inference chains.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findXChain(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findXYChain(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findAIC(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
