#include "controllers/StaticRotation.h"

namespace zorvanta {

using namespace host;

StaticRotation::StaticRotation(bool) {}

Quat StaticRotation::Initial() {
    return Quat();
}
Quat StaticRotation::Zero() {
    return Quat();
}
void StaticRotation::ApplyRelative(const Quat& v, void* val) {
    PreRotateMatrix(*static_cast<Matrix3*>(val), v);
}
Quat StaticRotation::AddRelative(const Quat& v, void* val) {
    return v * Quat(*static_cast<AngAxis*>(val));
}
void StaticRotation::Apply(Quat& a, const Quat& b) {
    a = b * a;
}
// The rotation a fraction f of the way from no rotation, the short way.
void StaticRotation::Multiply(Quat& v, float f) {
    v.MakeClosest(Quat());
    v = Slerp(Quat(), v, f);
}

}  // namespace zorvanta
