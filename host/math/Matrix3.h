#pragma once

#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "host/math/Point3.h"

namespace host {

// An affine transform in row-vector form: a point is transformed by p' = p * M.
// Rows 0, 1, 2 are the images of the X, Y and Z axes, row 3 the translation.
// A * B applies A first and B after it, so a node's world transform is
// local * parentWorld. "Pre" operations act in the matrix's own (local) space,
// plain ones in the outer space: Translate(p) is M * T(p), PreTranslate(p) is T(p) * M.
// Angles are radians; RotateZ(a) with positive a takes the X axis towards Y.
//
// The identity flags are promises: a set flag guarantees that part is the identity.
// Every operation keeps them true (clearing a flag is always safe); code that writes
// rows directly through operator[] must call ValidateFlags() afterwards.
class Matrix3 {
public:
    enum IdentFlags : uint32_t {
        POS_IDENT = 1,  // translation row is zero
        ROT_IDENT = 2,  // no rotation: the 3x3 part is diagonal with positive entries
        SCL_IDENT = 4,  // no scale: the 3x3 part has unit, orthogonal rows
        MAT_IDENT = POS_IDENT | ROT_IDENT | SCL_IDENT,
    };

    // The identity.
    constexpr Matrix3() = default;
    Matrix3(const Point3& r0, const Point3& r1, const Point3& r2, const Point3& r3);

    Point3& operator[](int i) {
        assert(i >= 0 && i < 4);
        return rows_[i];
    }
    const Point3& operator[](int i) const {
        assert(i >= 0 && i < 4);
        return rows_[i];
    }
    Point3 GetRow(int i) const { return (*this)[i]; }
    void SetRow(int i, const Point3& p);
    Point3 GetColumn3(int col) const;
    Point3 GetTrans() const { return rows_[3]; }
    void SetTrans(const Point3& p);

    uint32_t GetIdentFlags() const { return flags_; }
    void SetIdentFlags(uint32_t f) { flags_ = f & MAT_IDENT; }
    void ClearIdentFlag(uint32_t f) { flags_ &= ~f; }
    // Recomputes the flags from the values, after rows were written directly.
    void ValidateFlags();
    bool IsIdentity() const;
    // Element-wise comparison within eps.
    bool Equals(const Matrix3& m, float eps) const;
    // Exact element-wise equality (flags are hints and are not compared).
    bool operator==(const Matrix3& m) const;

    void IdentityMatrix() { *this = Matrix3(); }
    void Zero();
    // Remove the translation, keeping the rotation and scale.
    void NoTrans();
    // Remove the rotation, keeping each row's length as a scale on its own axis.
    void NoRot();
    // Make every row of the 3x3 part unit length.
    void NoScale();

    void Translate(const Point3& p);
    void PreTranslate(const Point3& p);
    void RotateX(float angle);
    void RotateY(float angle);
    void RotateZ(float angle);
    void PreRotateX(float angle);
    void PreRotateY(float angle);
    void PreRotateZ(float angle);
    // Pre-rotation about the X (0), Y (1) or Z (2) axis.
    void PreRotateAbout(int axis, float angle) {
        PreRotateAxis(axis == 2 ? 0 : axis + 1, axis == 0 ? 2 : axis - 1, angle);
    }
    // M * S(s); the translation row is scaled only when applyToTrans is set.
    void Scale(const Point3& s, bool applyToTrans = false);
    // S(s) * M; with applyToTrans the translation row is scaled by s as well.
    void PreScale(const Point3& s, bool applyToTrans = false);

    // Replace the matrix by a pure transform.
    void SetTranslate(const Point3& p);
    void SetRotateX(float angle);
    void SetRotateY(float angle);
    void SetRotateZ(float angle);
    void SetScale(const Point3& s);
    // A rotation about a unit axis that agrees with RotateX/Y/Z for the coordinate axes.
    void SetAngleAxis(const Point3& axis, float angle);

    void Invert();
    // Gram-Schmidt over rows 0 to 2: the result has orthonormal rows, keeps the
    // direction of row 0, the plane of rows 0 and 1, the parity, and the translation.
    void Orthogonalize();
    // Determinant of the 3x3 part.
    float Determinant() const;
    // True for a mirroring matrix (negative determinant).
    bool Parity() const { return Determinant() < 0.0f; }

    Point3 PointTransform(const Point3& p) const;
    Point3 VectorTransform(const Point3& v) const;

    Matrix3& operator*=(const Matrix3& m);

private:
    Point3 rows_[4] = {Point3::XAxis, Point3::YAxis, Point3::ZAxis, Point3::Origin};
    uint32_t flags_ = MAT_IDENT;

    // R * M: rows a and b of M are mixed; the translation stays.
    void PreRotateAxis(int a, int b, float angle) {
        if (angle == 0.0f) return;
        const float c = std::cos(angle), s = std::sin(angle);
        const Point3 ra = rows_[a], rb = rows_[b];
        rows_[a] = ra * c + rb * s;
        rows_[b] = rb * c - ra * s;
        flags_ &= ~ROT_IDENT;
    }
    void RotateAxis(int a, int b, float angle);
    void ScaleDone(const Point3& s, bool applyToTrans);
    friend Matrix3 operator*(const Matrix3& a, const Matrix3& b);
    friend struct MatrixRows;
};

// The product, inline and four floats at a time: every node evaluation multiplies.
// Each 12-byte row is read and written as 16 bytes; the spare lane stays inside the
// object (the next row, or the flag word behind row 3, which is rewritten last).
struct MatrixRows {
    typedef float Row __attribute__((vector_size(16)));
    typedef uint32_t Bits __attribute__((vector_size(16)));
    static_assert(sizeof(Matrix3) == 52 && offsetof(Matrix3, rows_) == 0,
                  "rows are read as 16 bytes: the flag word must follow them");

    static Row Load(const Matrix3& m, int i) {
        Row r;
        std::memcpy(&r, reinterpret_cast<const char*>(m.rows_) + 12 * i, sizeof r);
        return r;
    }
    static void Store(Matrix3& m, int i, Row r) {
        std::memcpy(reinterpret_cast<char*>(m.rows_) + 12 * i, &r, sizeof r);
    }
    // Row 3's spare lane holds the flag word, which reads as a denormal float; it is
    // cleared so that no arithmetic ever sees it.
    static Row LoadTranslation(const Matrix3& m) {
        const Bits keep = {~0u, ~0u, ~0u, 0u};
        return reinterpret_cast<Row>(reinterpret_cast<Bits>(Load(m, 3)) & keep);
    }
};

inline Matrix3 operator*(const Matrix3& a, const Matrix3& b) {
    using R = MatrixRows;
    const R::Row b0 = R::Load(b, 0), b1 = R::Load(b, 1), b2 = R::Load(b, 2);
    Matrix3 r;
    for (int i = 0; i < 3; ++i) {
        const Point3& p = a.rows_[i];
        R::Store(r, i, p.x * b0 + p.y * b1 + p.z * b2);
    }
    const Point3& t = a.rows_[3];
    R::Store(r, 3, t.x * b0 + t.y * b1 + t.z * b2 + R::LoadTranslation(b));
    r.flags_ = a.flags_ & b.flags_;
    return r;
}

inline Point3 operator*(const Point3& p, const Matrix3& m) {
    return m.PointTransform(p);
}

// The inverse; a singular matrix (zero determinant) has none and gives the identity.
Matrix3 Inverse(const Matrix3& m);
// v through rows 0 to 2 only (a direction: no translation).
inline Point3 VectorTransform(const Matrix3& m, const Point3& v) {
    return m.VectorTransform(v);
}

Matrix3 TransMatrix(const Point3& p);
Matrix3 ScaleMatrix(const Point3& s);
Matrix3 RotateXMatrix(float angle);
Matrix3 RotateYMatrix(float angle);
Matrix3 RotateZMatrix(float angle);
Matrix3 RotAngleAxisMatrix(const Point3& axis, float angle);

}  // namespace host
