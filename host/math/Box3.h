#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"

namespace host {

// An axis-aligned bounding box, empty at construction. Growing an empty box by a
// point makes it that point.
struct Box3 {
    Point3 pmin{1e30f, 1e30f, 1e30f};
    Point3 pmax{-1e30f, -1e30f, -1e30f};

    constexpr Box3() = default;
    constexpr Box3(const Point3& lo, const Point3& hi) : pmin(lo), pmax(hi) {}

    void Init() { *this = Box3(); }
    bool IsEmpty() const { return pmin.x > pmax.x || pmin.y > pmax.y || pmin.z > pmax.z; }
    Box3& operator+=(const Point3& p);
    Box3& operator+=(const Box3& b);
    // The bounding box of the eight transformed corners; an empty box stays empty.
    Box3 operator*(const Matrix3& m) const;
    // Corner i: bit 0 picks pmax.x over pmin.x, bit 1 y, bit 2 z.
    Point3 operator[](int i) const;
    Point3 Center() const { return (pmin + pmax) * 0.5f; }
    Point3 Width() const { return pmax - pmin; }
    bool Contains(const Point3& p) const;
    // Grows the box by s on every side (shrinks for negative s).
    void EnlargeBy(float s);
};

}  // namespace host
