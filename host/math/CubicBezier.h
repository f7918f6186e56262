#pragma once

namespace host {

// The cubic Bezier with control values p0..p3 at parameter u in [0, 1], for floats and
// points alike.
template <class T>
T CubicBezier(const T& p0, const T& p1, const T& p2, const T& p3, float u) {
    const float v = 1.0f - u;
    return p0 * (v * v * v) + p1 * (3.0f * v * v * u) + p2 * (3.0f * v * u * u) + p3 * (u * u * u);
}

}  // namespace host
