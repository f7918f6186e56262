#include "host/classes/KeyedScale.h"

#include <cmath>

#include "host/math/AffineParts.h"

namespace host {

ScaleValue KeyAdd(const ScaleValue& a, const ScaleValue& b) {
    return ScaleValue(Point3(a.s.x * b.s.x, a.s.y * b.s.y, a.s.z * b.s.z), a.q);
}

ScaleValue KeySub(const ScaleValue& a, const ScaleValue& b) {
    Point3 ratio;
    for (int i = 0; i < 3; ++i) ratio[i] = b.s[i] != 0.0f ? a.s[i] / b.s[i] : 1.0f;
    return ScaleValue(ratio, a.q);
}

namespace {

// A negative factor (a mirror) has no real fractional power: its magnitude is raised
// and its sign kept, so that a weighted mirror stays a mirror and never turns to NaN.
float FactorPower(float a, float f) {
    if (a >= 0.0f || f == std::trunc(f)) return std::pow(a, f);
    return -std::pow(-a, f);
}

}  // namespace

ScaleValue KeyScale(const ScaleValue& a, float f) {
    Point3 power;
    for (int i = 0; i < 3; ++i) power[i] = FactorPower(a.s[i], f);
    return ScaleValue(power, a.q);
}

ScaleValue ComposeScale(const ScaleValue& present, const ScaleValue& increment) {
    // Stretches about the same axes multiply factor by factor, exactly, mirrors included.
    if (present.q == increment.q) return KeyAdd(present, increment);
    AffineParts parts;
    decomp_affine(ScaleValueMatrix(present) * ScaleValueMatrix(increment), &parts);
    return ScaleValue(parts.k * parts.f, parts.u);
}

}  // namespace host
