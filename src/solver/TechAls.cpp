// Almost locked sets.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findAlsXz(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
