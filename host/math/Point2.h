#pragma once

#include <cmath>

namespace host {

// Two 32-bit floats: a position or direction in a plane (panels, screen space).
struct Point2 {
    float x = 0.0f;
    float y = 0.0f;

    constexpr Point2() = default;
    constexpr Point2(float x_, float y_) : x(x_), y(y_) {}

    float& operator[](int i) { return i == 0 ? x : y; }
    float operator[](int i) const { return i == 0 ? x : y; }

    Point2 operator-() const { return {-x, -y}; }
    Point2 operator+(const Point2& p) const { return {x + p.x, y + p.y}; }
    Point2 operator-(const Point2& p) const { return {x - p.x, y - p.y}; }
    Point2 operator*(float f) const { return {x * f, y * f}; }
    Point2 operator/(float f) const { return {x / f, y / f}; }
    Point2& operator+=(const Point2& p) { return *this = *this + p; }
    Point2& operator-=(const Point2& p) { return *this = *this - p; }
    Point2& operator*=(float f) { return *this = *this * f; }
    bool operator==(const Point2&) const = default;

    float LengthSquared() const { return x * x + y * y; }
    float Length() const { return std::sqrt(LengthSquared()); }
};

inline Point2 operator*(float f, const Point2& p) {
    return p * f;
}
inline float DotProd(const Point2& a, const Point2& b) {
    return a.x * b.x + a.y * b.y;
}

// The unit vector along p; the null vector comes back unchanged.
inline Point2 Normalize(const Point2& p) {
    const float len = p.Length();
    return len > 0.0f ? p / len : p;
}

}  // namespace host
