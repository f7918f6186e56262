#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"

namespace host::test {

constexpr float kPi = 3.14159265358979f;

inline std::string Describe(const Matrix3& m) {
    std::ostringstream out;
    for (int i = 0; i < 4; ++i) out << "(" << m[i].x << ", " << m[i].y << ", " << m[i].z << ") ";
    return out.str();
}

inline std::string Describe(const Quat& q) {
    std::ostringstream out;
    out << "(" << q.x << ", " << q.y << ", " << q.z << ", " << q.w << ")";
    return out.str();
}

inline ::testing::AssertionResult MatrixNear(const Matrix3& a, const Matrix3& b, float eps) {
    if (a.Equals(b, eps)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << Describe(a) << "\n  differs from\n" << Describe(b);
}

inline ::testing::AssertionResult PointNear(const Point3& a, const Point3& b, float eps) {
    return MatrixNear(TransMatrix(a), TransMatrix(b), eps);
}

// q and -q are the same rotation.
inline ::testing::AssertionResult SameRotation(const Quat& a, const Quat& b, float eps) {
    if (a.Equals(b, eps) || a.Equals(-b, eps)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << Describe(a) << " is not the rotation " << Describe(b);
}

// Seeded random values for property tests: the same sequence on every run.
class MathRandom {
public:
    explicit MathRandom(uint32_t seed) : rng_(seed) {}

    float Uniform(float lo, float hi) {
        return std::uniform_real_distribution<float>(lo, hi)(rng_);
    }
    Point3 Vector(float lo, float hi) {
        return {Uniform(lo, hi), Uniform(lo, hi), Uniform(lo, hi)};
    }

    // A rotation drawn uniformly from all rotations (Shoemake's subgroup method).
    Quat Rotation() {
        const float u1 = Uniform(0.0f, 1.0f), u2 = Uniform(0.0f, 2.0f * kPi),
                    u3 = Uniform(0.0f, 2.0f * kPi);
        const float a = std::sqrt(1.0f - u1), b = std::sqrt(u1);
        return {a * std::sin(u2), a * std::cos(u2), b * std::sin(u3), b * std::cos(u3)};
    }

    // Arbitrary rows (shear, non-uniform scale, mirrors), redrawn until far from singular.
    Matrix3 Affine() {
        for (;;) {
            Matrix3 m(Vector(-2, 2), Vector(-2, 2), Vector(-2, 2), Vector(-50, 50));
            if (std::fabs(m.Determinant()) > 0.2f) return m;
        }
    }

private:
    std::mt19937 rng_;
};

}  // namespace host::test
