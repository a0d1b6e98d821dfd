// Hidden and naked subsets.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findHiddenPair(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findNakedTriple(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findHiddenTriple(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findNakedQuad(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findHiddenQuad(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
