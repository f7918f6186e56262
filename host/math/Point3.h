#pragma once

#include <cmath>

namespace host {

// Three 32-bit floats: a position, a direction or an RGB colour (0 to 1).
struct Point3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    constexpr Point3() = default;
    constexpr Point3(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}

    static const Point3 Origin;
    static const Point3 XAxis;
    static const Point3 YAxis;
    static const Point3 ZAxis;

    // Component by index 0, 1, 2.
    float& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }
    float operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }

    Point3 operator-() const { return {-x, -y, -z}; }
    Point3 operator+(const Point3& p) const { return {x + p.x, y + p.y, z + p.z}; }
    Point3 operator-(const Point3& p) const { return {x - p.x, y - p.y, z - p.z}; }
    Point3 operator*(float f) const { return {x * f, y * f, z * f}; }
    Point3 operator/(float f) const { return {x / f, y / f, z / f}; }
    // Component-wise product and quotient.
    Point3 operator*(const Point3& p) const { return {x * p.x, y * p.y, z * p.z}; }
    Point3 operator/(const Point3& p) const { return {x / p.x, y / p.y, z / p.z}; }
    // Dot product (%) and cross product (^).
    float operator%(const Point3& p) const { return x * p.x + y * p.y + z * p.z; }
    Point3 operator^(const Point3& p) const {
        return {y * p.z - z * p.y, z * p.x - x * p.z, x * p.y - y * p.x};
    }

    Point3& operator+=(const Point3& p) { return *this = *this + p; }
    Point3& operator-=(const Point3& p) { return *this = *this - p; }
    Point3& operator*=(float f) { return *this = *this * f; }
    Point3& operator*=(const Point3& p) { return *this = *this * p; }
    Point3& operator/=(float f) { return *this = *this / f; }
    bool operator==(const Point3&) const = default;

    float LengthSquared() const { return x * x + y * y + z * z; }
    float Length() const { return std::sqrt(LengthSquared()); }
    // Index of the component of largest (smallest) absolute value; the first on a tie.
    int MaxComponent() const;
    int MinComponent() const;
    // Makes this a unit vector in place; the null vector stays null.
    Point3& Unify();
    // True when every component differs from p's by at most eps.
    bool Equals(const Point3& p, float eps) const;
};

inline constexpr Point3 Point3::Origin{0.0f, 0.0f, 0.0f};
inline constexpr Point3 Point3::XAxis{1.0f, 0.0f, 0.0f};
inline constexpr Point3 Point3::YAxis{0.0f, 1.0f, 0.0f};
inline constexpr Point3 Point3::ZAxis{0.0f, 0.0f, 1.0f};

inline Point3 operator*(float f, const Point3& p) {
    return p * f;
}
inline float DotProd(const Point3& a, const Point3& b) {
    return a % b;
}
inline Point3 CrossProd(const Point3& a, const Point3& b) {
    return a ^ b;
}
inline float Length(const Point3& p) {
    return p.Length();
}

// The unit vector along p; the null vector comes back unchanged.
inline Point3 Normalize(const Point3& p) {
    const float len = p.Length();
    return len > 0.0f ? p / len : p;
}

// A unit vector perpendicular to v: the cross product with the coordinate axis least
// aligned with v. The null vector gives the null vector.
inline Point3 AnyPerpendicular(const Point3& v) {
    Point3 axis;
    axis[v.MinComponent()] = 1.0f;
    return Normalize(v ^ axis);
}

inline int Point3::MaxComponent() const {
    const float ax = std::fabs(x), ay = std::fabs(y), az = std::fabs(z);
    if (ax >= ay) return ax >= az ? 0 : 2;
    return ay >= az ? 1 : 2;
}

inline int Point3::MinComponent() const {
    const float ax = std::fabs(x), ay = std::fabs(y), az = std::fabs(z);
    if (ax <= ay) return ax <= az ? 0 : 2;
    return ay <= az ? 1 : 2;
}

inline Point3& Point3::Unify() {
    return *this = Normalize(*this);
}

inline bool Point3::Equals(const Point3& p, float eps) const {
    return std::fabs(x - p.x) <= eps && std::fabs(y - p.y) <= eps && std::fabs(z - p.z) <= eps;
}

}  // namespace host
