#include "helpers/ShapeWarps.h"

#include "helpers/BendWarp.h"

namespace zorvanta {

using namespace host;

Point3 SaddleWarp(const Point3& unit, float amount) {
    return {unit.x, unit.y, unit.z - (2.0f * unit.x * unit.x - 1.0f) * amount};
}

Point3 BoxWarp(const Point3& p, int axis, float amount) {
    const float along = p[axis];
    float factor = 1.0f;
    if (amount < 0.0f && along > 0.0f) factor = 1.0f + amount;
    if (amount > 0.0f && along < 0.0f) factor = 1.0f - amount;
    Point3 out = p * factor;
    out[axis] = along;
    return out;
}

Point3 PointMap::operator()(const Point3& p) const {
    Point3 out = saddle != 0.0f ? SaddleWarp(p, saddle) : p;
    out = out * scale;
    if (boxAxis >= 0) out = BoxWarp(out, boxAxis, boxAmount);
    if (bend) out = bend->Apply(out);
    return out;
}

}  // namespace zorvanta
