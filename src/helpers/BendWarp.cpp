#include "helpers/BendWarp.h"

#include <algorithm>
#include <cmath>

namespace zorvanta {

using namespace host;

namespace {

constexpr float kPi = 3.1415927f;
constexpr float kTwoPi = 6.2831855f;
// The span's ends are pushed out a little, so that points on them still count as inside.
constexpr float kLimitMargin = 0.0001f;

struct BendFrame {
    Point3 rows[3];
};
constexpr BendFrame kFrames[3] = {
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}},
    {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}},
};

Point3 Abs(const Point3& p) {
    return {std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)};
}

}  // namespace

BendWarp::BendWarp(float amount, float span, int warpAxis) {
    const BendFrame& frame = kFrames[std::clamp(warpAxis, 0, 2)];
    for (int i = 0; i < 3; ++i) rows_[i] = frame.rows[i];
    const float angle = amount * kTwoPi;
    active_ = std::fabs(angle) >= kMinAngle;
    lower_ = -span / 2.0f - kLimitMargin;
    upper_ = span / 2.0f + kLimitMargin;
    if (active_) radius_ = std::fabs(upper_ - lower_) / angle;
}

Point3 BendWarp::ToFrame(const Point3& p) const {
    return rows_[0] * p.x + rows_[1] * p.y + rows_[2] * p.z;
}

Point3 BendWarp::FromFrame(const Point3& p) const {
    // The frames are rotations: the inverse is the transpose.
    return {rows_[0] % p, rows_[1] % p, rows_[2] % p};
}

Point3 BendWarp::Apply(const Point3& p) const {
    if (!active_) return p;
    const Point3 q = ToFrame(p);
    const float along = std::clamp(q.y, lower_, upper_);
    const float turn = along / radius_;  // radians rolled up to this point
    const float x = kPi - turn;
    const float r = radius_ - q.z;
    Point3 bent(q.x, std::sin(x) * r, std::cos(x) * r + radius_);
    // Past a limit the point keeps its distance along the tangent at the limit.
    const float beyond = q.y - along;
    if (beyond != 0.0f) bent += Point3(0.0f, std::cos(turn), std::sin(turn)) * beyond;
    return FromFrame(bent);
}

Box3 BendWarp::Bound(const Point3& half) const {
    const Point3 extent = Abs(half);
    if (!active_) return Box3(-extent, extent);
    // A point at distance y along the span and z off the sheet moves along an arc no
    // longer than |y| * |1 - z / r| from where it sat at y = 0, which is (x, 0, z).
    const Point3 f = Abs(ToFrame(extent));
    const float reach = f.z + f.y * (1.0f + f.z / std::fabs(radius_));
    const Point3 inFrame(f.x, reach, reach);
    const Point3 out = Abs(FromFrame(inFrame));
    return Box3(-out, out);
}

}  // namespace zorvanta
