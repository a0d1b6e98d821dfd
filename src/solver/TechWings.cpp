// Wings: XY-Wing, XYZ-Wing, W-Wing.

#include "solver/Techniques.h"

namespace tessaly {

std::optional<TechniqueStep> findXYWing(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findXYZWing(const TechniqueBoard&) { return std::nullopt; }
std::optional<TechniqueStep> findWWing(const TechniqueBoard&) { return std::nullopt; }

}  // namespace tessaly
