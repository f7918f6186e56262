#include "helpers/ShapeSink.h"

namespace zorvanta {

using namespace host;

void ShapeSink::Consider(const Point3& p) {
    const float distance = Length(p - target_);
    if (distance < nearestDistance_) {
        nearestDistance_ = distance;
        nearest_ = p;
    }
    hasCandidate_ = true;
}

}  // namespace zorvanta
