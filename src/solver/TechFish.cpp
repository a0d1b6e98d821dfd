// Fish: X-Wing, Swordfish, Jellyfish and their finned and sashimi forms.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findXWing(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findSwordfish(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findJellyfish(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findFinnedXWing(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findFinnedSwordfish(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
