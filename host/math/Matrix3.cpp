#include "host/math/Matrix3.h"

#include <cmath>

namespace host {

namespace {

bool IsNull(const Point3& p) {
    return p.x == 0.0f && p.y == 0.0f && p.z == 0.0f;
}

// The direction of a Gram-Schmidt residual, or null when it is only rounding noise
// left of a row that depends on the rows before it.
Point3 Direction(const Point3& residual, const Point3& row) {
    const float len = residual.Length();
    return len > 1e-5f * row.Length() ? residual / len : Point3::Origin;
}

// Completes rows whose Gram-Schmidt result was null (degenerate input) so that
// the three rows are orthonormal and the determinant has the sign wanted.
void CompleteBasis(Point3 (&e)[3], bool mirrored) {
    int known[3];
    int count = 0;
    for (int i = 0; i < 3; ++i)
        if (!IsNull(e[i])) known[count++] = i;
    if (count == 3) return;
    if (count == 0) {
        e[0] = Point3::XAxis;
        e[1] = Point3::YAxis;
        e[2] = Point3::ZAxis;
    } else if (count == 1) {
        const Point3 b = e[known[0]];
        const int i1 = (known[0] + 1) % 3;
        e[i1] = AnyPerpendicular(b);
        e[(known[0] + 2) % 3] = b ^ e[i1];
    } else {
        const int missing = 3 - known[0] - known[1];
        e[missing] = e[(missing + 1) % 3] ^ e[(missing + 2) % 3];
    }
    const float det = e[0] % (e[1] ^ e[2]);
    if ((det < 0.0f) != mirrored) {
        for (int i = 0; i < 3; ++i) {
            if (count == 0 || i != known[0]) {
                e[i] = -e[i];
                break;
            }
        }
    }
}

bool IsUnit(const Point3& s) {
    return s.x == 1.0f && s.y == 1.0f && s.z == 1.0f;
}
bool AnyNegative(const Point3& s) {
    return s.x < 0.0f || s.y < 0.0f || s.z < 0.0f;
}

}  // namespace

Matrix3::Matrix3(const Point3& r0, const Point3& r1, const Point3& r2, const Point3& r3)
    : rows_{r0, r1, r2, r3} {
    ValidateFlags();
}

void Matrix3::SetRow(int i, const Point3& p) {
    (*this)[i] = p;
    if (i == 3) {
        if (IsNull(p))
            flags_ |= POS_IDENT;
        else
            flags_ &= ~POS_IDENT;
    } else {
        flags_ &= ~(ROT_IDENT | SCL_IDENT);
    }
}

Point3 Matrix3::GetColumn3(int col) const {
    return {rows_[0][col], rows_[1][col], rows_[2][col]};
}

void Matrix3::SetTrans(const Point3& p) {
    SetRow(3, p);
}

void Matrix3::ValidateFlags() {
    flags_ = IsNull(rows_[3]) ? uint32_t(POS_IDENT) : 0u;
    const Point3& a = rows_[0];
    const Point3& b = rows_[1];
    const Point3& c = rows_[2];
    const bool diagonal =
        a.y == 0.0f && a.z == 0.0f && b.x == 0.0f && b.z == 0.0f && c.x == 0.0f && c.y == 0.0f;
    if (!diagonal || a.x < 0.0f || b.y < 0.0f || c.z < 0.0f) return;
    flags_ |= ROT_IDENT;
    if (a.x == 1.0f && b.y == 1.0f && c.z == 1.0f) flags_ |= SCL_IDENT;
}

bool Matrix3::IsIdentity() const {
    return (flags_ & MAT_IDENT) == MAT_IDENT || *this == Matrix3();
}

bool Matrix3::Equals(const Matrix3& m, float eps) const {
    for (int i = 0; i < 4; ++i)
        if (!rows_[i].Equals(m.rows_[i], eps)) return false;
    return true;
}

bool Matrix3::operator==(const Matrix3& m) const {
    for (int i = 0; i < 4; ++i)
        if (rows_[i] != m.rows_[i]) return false;
    return true;
}

void Matrix3::Zero() {
    for (Point3& r : rows_) r = Point3::Origin;
    flags_ = POS_IDENT;
}

void Matrix3::NoTrans() {
    rows_[3] = Point3::Origin;
    flags_ |= POS_IDENT;
}

void Matrix3::NoRot() {
    for (int i = 0; i < 3; ++i) {
        const float len = rows_[i].Length();
        rows_[i] = Point3::Origin;
        rows_[i][i] = len;
    }
    ValidateFlags();
}

void Matrix3::NoScale() {
    for (int i = 0; i < 3; ++i) rows_[i] = Normalize(rows_[i]);
    ValidateFlags();
}

void Matrix3::Translate(const Point3& p) {
    rows_[3] += p;
    if (!IsNull(p)) flags_ &= ~POS_IDENT;
}

void Matrix3::PreTranslate(const Point3& p) {
    rows_[3] += VectorTransform(p);
    if (!IsNull(p)) flags_ &= ~POS_IDENT;
}

// M * R, where R turns axis a towards axis b by angle: every row, the
// translation included, is turned.
void Matrix3::RotateAxis(int a, int b, float angle) {
    if (angle == 0.0f) return;
    const float c = std::cos(angle), s = std::sin(angle);
    for (Point3& r : rows_) {
        const float ra = r[a], rb = r[b];
        r[a] = ra * c - rb * s;
        r[b] = ra * s + rb * c;
    }
    flags_ &= ~ROT_IDENT;
}

void Matrix3::RotateX(float angle) {
    RotateAxis(1, 2, angle);
}
void Matrix3::RotateY(float angle) {
    RotateAxis(2, 0, angle);
}
void Matrix3::RotateZ(float angle) {
    RotateAxis(0, 1, angle);
}
void Matrix3::PreRotateX(float angle) {
    PreRotateAxis(1, 2, angle);
}
void Matrix3::PreRotateY(float angle) {
    PreRotateAxis(2, 0, angle);
}
void Matrix3::PreRotateZ(float angle) {
    PreRotateAxis(0, 1, angle);
}

void Matrix3::Scale(const Point3& s, bool applyToTrans) {
    for (int i = 0; i < 3; ++i) rows_[i] *= s;
    ScaleDone(s, applyToTrans);
}

void Matrix3::PreScale(const Point3& s, bool applyToTrans) {
    for (int i = 0; i < 3; ++i) rows_[i] *= s[i];
    ScaleDone(s, applyToTrans);
}

// Either scale by s: the translation row follows when asked, and the flags lose what
// a scale can break (a negative factor mirrors, which counts as rotation).
void Matrix3::ScaleDone(const Point3& s, bool applyToTrans) {
    if (applyToTrans) rows_[3] *= s;
    if (!IsUnit(s)) flags_ &= ~SCL_IDENT;
    if (AnyNegative(s)) flags_ &= ~ROT_IDENT;
}

void Matrix3::SetTranslate(const Point3& p) {
    *this = TransMatrix(p);
}
void Matrix3::SetRotateX(float angle) {
    *this = RotateXMatrix(angle);
}
void Matrix3::SetRotateY(float angle) {
    *this = RotateYMatrix(angle);
}
void Matrix3::SetRotateZ(float angle) {
    *this = RotateZMatrix(angle);
}
void Matrix3::SetScale(const Point3& s) {
    *this = ScaleMatrix(s);
}

void Matrix3::SetAngleAxis(const Point3& axis, float angle) {
    const Point3 n = Normalize(axis);
    const float c = std::cos(angle), s = std::sin(angle), t = 1.0f - c;
    rows_[0] = {t * n.x * n.x + c, t * n.x * n.y + s * n.z, t * n.x * n.z - s * n.y};
    rows_[1] = {t * n.x * n.y - s * n.z, t * n.y * n.y + c, t * n.y * n.z + s * n.x};
    rows_[2] = {t * n.x * n.z + s * n.y, t * n.y * n.z - s * n.x, t * n.z * n.z + c};
    rows_[3] = Point3::Origin;
    ValidateFlags();
    flags_ |= SCL_IDENT;
}

void Matrix3::Invert() {
    *this = Inverse(*this);
}

void Matrix3::Orthogonalize() {
    const bool mirrored = Parity();
    Point3 e[3];
    e[0] = Direction(rows_[0], rows_[0]);
    e[1] = Direction(rows_[1] - e[0] * (rows_[1] % e[0]), rows_[1]);
    e[2] = Direction(rows_[2] - e[0] * (rows_[2] % e[0]) - e[1] * (rows_[2] % e[1]), rows_[2]);
    CompleteBasis(e, mirrored);
    for (int i = 0; i < 3; ++i) rows_[i] = e[i];
    ValidateFlags();
    if (!mirrored) flags_ |= SCL_IDENT;
}

float Matrix3::Determinant() const {
    return rows_[0] % (rows_[1] ^ rows_[2]);
}

Point3 Matrix3::PointTransform(const Point3& p) const {
    return rows_[0] * p.x + rows_[1] * p.y + rows_[2] * p.z + rows_[3];
}

Point3 Matrix3::VectorTransform(const Point3& v) const {
    return rows_[0] * v.x + rows_[1] * v.y + rows_[2] * v.z;
}

Matrix3& Matrix3::operator*=(const Matrix3& m) {
    return *this = *this * m;
}

Matrix3 Inverse(const Matrix3& m) {
    const uint32_t flags = m.GetIdentFlags();
    const bool noRot = flags & Matrix3::ROT_IDENT;
    const bool noScale = flags & Matrix3::SCL_IDENT;
    Matrix3 r;  // the identity already inverts a 3x3 part without rotation and scale
    if (noScale && !noRot) {
        // A pure rotation: the inverse is the transpose.
        for (int i = 0; i < 3; ++i) r[i] = m.GetColumn3(i);
    } else if (!noScale) {
        // The adjugate over the determinant: the columns of the inverse are the
        // cross products of the rows.
        const Point3 c0 = m[1] ^ m[2], c1 = m[2] ^ m[0], c2 = m[0] ^ m[1];
        const float det = m[0] % c0;
        if (det == 0.0f) return Matrix3();
        const float inv = 1.0f / det;
        r[0] = Point3(c0.x, c1.x, c2.x) * inv;
        r[1] = Point3(c0.y, c1.y, c2.y) * inv;
        r[2] = Point3(c0.z, c1.z, c2.z) * inv;
    }
    r[3] = -r.VectorTransform(m.GetTrans());
    r.SetIdentFlags(flags);
    return r;
}

Matrix3 TransMatrix(const Point3& p) {
    Matrix3 m;
    m.SetTrans(p);
    return m;
}

Matrix3 ScaleMatrix(const Point3& s) {
    Matrix3 m;
    m.Scale(s);
    return m;
}

Matrix3 RotateXMatrix(float angle) {
    Matrix3 m;
    m.RotateX(angle);
    return m;
}

Matrix3 RotateYMatrix(float angle) {
    Matrix3 m;
    m.RotateY(angle);
    return m;
}

Matrix3 RotateZMatrix(float angle) {
    Matrix3 m;
    m.RotateZ(angle);
    return m;
}

Matrix3 RotAngleAxisMatrix(const Point3& axis, float angle) {
    Matrix3 m;
    m.SetAngleAxis(axis, angle);
    return m;
}

}  // namespace host
