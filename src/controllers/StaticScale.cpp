#include "controllers/StaticScale.h"

namespace zorvanta {

using namespace host;

StaticScale::StaticScale(bool) {}

ScaleValue StaticScale::Initial() {
    return ScaleValue(Point3(1, 1, 1));
}
// All seven numbers zero but the axis's w.
ScaleValue StaticScale::Zero() {
    return ScaleValue(Point3(0, 0, 0), Quat());
}
void StaticScale::ApplyRelative(const ScaleValue& v, void* val) {
    ApplyScaling(*static_cast<Matrix3*>(val), v);
}
ScaleValue StaticScale::AddRelative(const ScaleValue& v, void* val) {
    ScaleValue by = *static_cast<ScaleValue*>(val);
    return ScaleValue(Point3(by.s.x * v.s.x, by.s.y * v.s.y, by.s.z * v.s.z), v.q * by.q);
}
void StaticScale::Apply(ScaleValue& a, const ScaleValue& b) {
    a = ScaleValue(Point3(a.s.x * b.s.x, a.s.y * b.s.y, a.s.z * b.s.z), b.q * a.q);
}
// Factors a fraction f of the way from (1, 1, 1), the axis from no rotation.
void StaticScale::Multiply(ScaleValue& v, float f) {
    v.s = Point3(1, 1, 1) + (v.s - Point3(1, 1, 1)) * f;
    v.q.MakeClosest(Quat());
    v.q = Slerp(Quat(), v.q, f);
}

}  // namespace zorvanta
