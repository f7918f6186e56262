#include "host/math/Box3.h"

#include <algorithm>

namespace host {

namespace {

Point3 Min(const Point3& a, const Point3& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
}

Point3 Max(const Point3& a, const Point3& b) {
    return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
}

}  // namespace

Box3& Box3::operator+=(const Point3& p) {
    if (IsEmpty()) {
        pmin = pmax = p;
    } else {
        pmin = Min(pmin, p);
        pmax = Max(pmax, p);
    }
    return *this;
}

Box3& Box3::operator+=(const Box3& b) {
    if (b.IsEmpty()) return *this;
    if (IsEmpty()) return *this = b;
    pmin = Min(pmin, b.pmin);
    pmax = Max(pmax, b.pmax);
    return *this;
}

Box3 Box3::operator*(const Matrix3& m) const {
    Box3 out;
    if (IsEmpty()) return out;
    for (int i = 0; i < 8; ++i) out += (*this)[i] * m;
    return out;
}

Point3 Box3::operator[](int i) const {
    return {(i & 1) ? pmax.x : pmin.x, (i & 2) ? pmax.y : pmin.y, (i & 4) ? pmax.z : pmin.z};
}

bool Box3::Contains(const Point3& p) const {
    return !IsEmpty() && p.x >= pmin.x && p.y >= pmin.y && p.z >= pmin.z && p.x <= pmax.x &&
           p.y <= pmax.y && p.z <= pmax.z;
}

void Box3::EnlargeBy(float s) {
    if (IsEmpty()) return;
    pmin -= Point3(s, s, s);
    pmax += Point3(s, s, s);
}

}  // namespace host
