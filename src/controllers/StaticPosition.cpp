#include "controllers/StaticPosition.h"

namespace zorvanta {

using namespace host;

StaticPosition::StaticPosition(bool) {}

Point3 StaticPosition::Initial() {
    return Point3(0, 0, 0);
}
Point3 StaticPosition::Zero() {
    return Point3(0, 0, 0);
}
void StaticPosition::ApplyRelative(const Point3& v, void* val) {
    static_cast<Matrix3*>(val)->PreTranslate(v);
}
Point3 StaticPosition::AddRelative(const Point3& v, void* val) {
    return *static_cast<Point3*>(val) + v;
}
void StaticPosition::Apply(Point3& a, const Point3& b) {
    a += b;
}
void StaticPosition::Multiply(Point3& v, float f) {
    v *= f;
}

}  // namespace zorvanta
