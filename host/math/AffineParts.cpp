#include "host/math/AffineParts.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>

#include "host/math/AngAxis.h"

namespace host {

namespace {

using Vec = std::array<double, 3>;
using Mat = std::array<Vec, 3>;  // [row][column]

constexpr Mat kIdentity = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};

double Dot(const Vec& a, const Vec& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vec Cross(const Vec& a, const Vec& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vec Scaled(const Vec& v, double s) {
    return {v[0] * s, v[1] * s, v[2] * s};
}
Vec Minus(const Vec& a, const Vec& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
double Length(const Vec& v) {
    return std::sqrt(Dot(v, v));
}

// A unit vector perpendicular to the unit vector w.
Vec Perpendicular(const Vec& w) {
    if (std::fabs(w[0]) > std::fabs(w[1])) {
        const double inv = 1.0 / std::sqrt(w[0] * w[0] + w[2] * w[2]);
        return {-w[2] * inv, 0.0, w[0] * inv};
    }
    const double inv = 1.0 / std::sqrt(w[1] * w[1] + w[2] * w[2]);
    return {0.0, w[2] * inv, -w[1] * inv};
}

// Eigenvalues and eigenvectors of a symmetric 3x3 matrix in closed form, after
// D. Eberly, "A Robust Eigensolver for 3x3 Symmetric Matrices" (2014): the eigenvalues
// from the trigonometric solution of the characteristic cubic, then the eigenvector of
// the eigenvalue farthest from the others by cross products of rows, the next one
// inside the plane orthogonal to it, the last as their cross product. Solving the
// isolated eigenvalue first keeps nearly equal pairs accurate.
struct Eigen {
    Vec values;   // ascending, but in index order for an already diagonal matrix
    Mat vectors;  // rows: unit eigenvectors of the values, a right-handed set
};

// The unit eigenvector of `value`: the longest cross product of two rows of a - value I.
Vec IsolatedEigenvector(const Mat& a, double value) {
    const Vec r0 = {a[0][0] - value, a[0][1], a[0][2]};
    const Vec r1 = {a[0][1], a[1][1] - value, a[1][2]};
    const Vec r2 = {a[0][2], a[1][2], a[2][2] - value};
    const Vec c[3] = {Cross(r0, r1), Cross(r0, r2), Cross(r1, r2)};
    const double d[3] = {Dot(c[0], c[0]), Dot(c[1], c[1]), Dot(c[2], c[2])};
    const Vec& first = d[0] >= d[1] ? c[0] : c[1];
    const double firstD = std::max(d[0], d[1]);
    const Vec& best = firstD >= d[2] ? first : c[2];
    return Scaled(best, 1.0 / std::sqrt(std::max(firstD, d[2])));
}

Vec MatTimes(const Mat& a, const Vec& v) {
    return {Dot(a[0], v), Dot(a[1], v), Dot(a[2], v)};
}

// The unit eigenvector of `value` orthogonal to the eigenvector `known`: the null
// direction of the 2x2 restriction of a - value I to the plane orthogonal to `known`,
// taken perpendicular to the restriction's dominant row.
Vec SecondEigenvector(const Mat& a, const Vec& known, double value) {
    const Vec u = Perpendicular(known), v = Cross(known, u);
    const Vec au = MatTimes(a, u), av = MatTimes(a, v);
    const double m00 = Dot(u, au) - value, m01 = Dot(u, av), m11 = Dot(v, av) - value;
    const bool firstRow = std::fabs(m00) >= std::fabs(m11);
    const double r0 = firstRow ? m00 : m01, r1 = firstRow ? m01 : m11;
    const double length2 = r0 * r0 + r1 * r1;
    if (length2 == 0.0) return u;  // the restriction vanishes: any direction in the plane
    const double s = 1.0 / std::sqrt(length2);
    return Minus(Scaled(u, r1 * s), Scaled(v, r0 * s));
}

// Eigenvalue gaps above this fraction of the largest entry leave each cross-product
// eigenvector accurate to about 1e-10 on its own.
constexpr double kSeparated = 1e-3;

Eigen SymmetricEigen(const Mat& a) {
    const double offDiagonal = a[0][1] * a[0][1] + a[0][2] * a[0][2] + a[1][2] * a[1][2];
    if (offDiagonal == 0.0) return {{a[0][0], a[1][1], a[2][2]}, kIdentity};  // already diagonal
    // No rescaling: the entries come from floats, so every term of the cubic below stays
    // within about 1e+-230, well inside double range. Only the gap test needs the scale.
    const double largest = std::max({std::fabs(a[0][0]), std::fabs(a[1][1]), std::fabs(a[2][2]),
                                     std::fabs(a[0][1]), std::fabs(a[0][2]), std::fabs(a[1][2])});
    const double q = (a[0][0] + a[1][1] + a[2][2]) * (1.0 / 3.0);
    const double b00 = a[0][0] - q, b11 = a[1][1] - q, b22 = a[2][2] - q;
    const double p =
        std::sqrt((b00 * b00 + b11 * b11 + b22 * b22 + 2.0 * offDiagonal) * (1.0 / 6.0));
    const double c00 = b11 * b22 - a[1][2] * a[1][2];
    const double c01 = a[0][1] * b22 - a[1][2] * a[0][2];
    const double c02 = a[0][1] * a[1][2] - b11 * a[0][2];
    const double halfDet =
        std::clamp((b00 * c00 - a[0][1] * c01 + a[0][2] * c02) / (2.0 * p * p * p), -1.0, 1.0);
    // The roots 2cos(angle + 2k pi/3) of the normalised cubic; beta0 <= beta1 <= beta2.
    const double angle = std::acos(halfDet) * (1.0 / 3.0);
    const double cosAngle = std::cos(angle),
                 sinAngle = std::sqrt(std::max(0.0, 1.0 - cosAngle * cosAngle));
    const double beta2 = 2.0 * cosAngle;
    const double beta0 = -cosAngle - std::sqrt(3.0) * sinAngle;  // 2cos(angle + 2pi/3)
    const double beta1 = -(beta0 + beta2);
    Eigen e;
    e.values = {q + p * beta0, q + p * beta1, q + p * beta2};
    if (std::min(e.values[1] - e.values[0], e.values[2] - e.values[1]) > kSeparated * largest) {
        // Well apart: the outer two independently (no chain through the first), the
        // middle one completes the right-handed set.
        e.vectors[0] = IsolatedEigenvector(a, e.values[0]);
        e.vectors[2] = IsolatedEigenvector(a, e.values[2]);
        e.vectors[1] = Cross(e.vectors[2], e.vectors[0]);
    } else if (halfDet >= 0.0) {  // the largest eigenvalue is the isolated one
        e.vectors[2] = IsolatedEigenvector(a, e.values[2]);
        e.vectors[1] = SecondEigenvector(a, e.vectors[2], e.values[1]);
        e.vectors[0] = Cross(e.vectors[1], e.vectors[2]);
    } else {
        e.vectors[0] = IsolatedEigenvector(a, e.values[0]);
        e.vectors[1] = SecondEigenvector(a, e.vectors[0], e.values[1]);
        e.vectors[2] = Cross(e.vectors[0], e.vectors[1]);
    }
    return e;
}

// The quaternion of a rotation given by its rows (Shepperd's method), in double: the
// root of the largest diagonal combination, so no division goes through a small number
// and errors in the rows stay errors of the same size in the quaternion.
Quat QuatOfRotation(const Mat& m) {
    const double trace = m[0][0] + m[1][1] + m[2][2];
    double x, y, z, w;
    if (trace > 0.0) {
        const double s = 0.5 / std::sqrt(trace + 1.0);
        w = 0.25 / s, x = (m[2][1] - m[1][2]) * s, y = (m[0][2] - m[2][0]) * s,
        z = (m[1][0] - m[0][1]) * s;
    } else if (m[0][0] >= m[1][1] && m[0][0] >= m[2][2]) {
        const double s = 0.5 / std::sqrt(1.0 + m[0][0] - m[1][1] - m[2][2]);
        x = 0.25 / s, w = (m[2][1] - m[1][2]) * s, y = (m[0][1] + m[1][0]) * s,
        z = (m[0][2] + m[2][0]) * s;
    } else if (m[1][1] >= m[2][2]) {
        const double s = 0.5 / std::sqrt(1.0 + m[1][1] - m[0][0] - m[2][2]);
        y = 0.25 / s, w = (m[0][2] - m[2][0]) * s, x = (m[0][1] + m[1][0]) * s,
        z = (m[1][2] + m[2][1]) * s;
    } else {
        const double s = 0.5 / std::sqrt(1.0 + m[2][2] - m[0][0] - m[1][1]);
        z = 0.25 / s, w = (m[1][0] - m[0][1]) * s, x = (m[0][2] + m[2][0]) * s,
        y = (m[1][2] + m[2][1]) * s;
    }
    // The rows are orthonormal to double precision, so the quaternion is unit already.
    const double sign = w < 0.0 ? -1.0 : 1.0;
    return Quat(float(x * sign), float(y * sign), float(z * sign), float(w * sign));
}

// Below this fraction of the largest stretch factor a factor counts as zero: the
// matrix has lost that dimension and the rotation must be completed by hand.
constexpr double kLostDimension = 1e-9;
// Above this ratio of the smallest to the largest factor the stretch directions are
// accurate without orthogonalising them.
constexpr double kWellConditioned = 1e-2;

// The unit directions w[i] of the rows b[i] = v[i] m, whose lengths are k[i]. Each is
// as accurate as its eigenvector times largest k / k[i]: for a well-conditioned matrix
// the three divisions are exact enough. Otherwise the directions are made orthonormal
// in order of decreasing factor, which moves only the small-factor ones, whose share of
// the matrix is small, and the smallest factor is taken from |det m| over the other two,
// which are accurate; a dimension the matrix has lost (a factor of nearly zero) is
// completed so that the essential rotation stays proper.
Mat StretchedDirections(const Mat& rows, const Mat& b, Vec& k) {
    const double largest = std::max({k[0], k[1], k[2]});
    if (std::min({k[0], k[1], k[2]}) > kWellConditioned * largest)
        return {Scaled(b[0], 1.0 / k[0]), Scaled(b[1], 1.0 / k[1]), Scaled(b[2], 1.0 / k[2])};
    Mat w = kIdentity;
    if (largest == 0.0) return w;
    const double lost = kLostDimension * largest;
    const int i0 = k[0] >= k[1] ? (k[0] >= k[2] ? 0 : 2) : (k[1] >= k[2] ? 1 : 2);
    const int i1 = k[(i0 + 1) % 3] >= k[(i0 + 2) % 3] ? (i0 + 1) % 3 : (i0 + 2) % 3;
    const int i2 = 3 - i0 - i1;
    w[i0] = Scaled(b[i0], 1.0 / k[i0]);
    const Vec rest = Minus(b[i1], Scaled(w[i0], Dot(b[i1], w[i0])));
    const double restLength = Length(rest);
    w[i1] =
        k[i1] > lost && restLength > 0.0 ? Scaled(rest, 1.0 / restLength) : Perpendicular(w[i0]);
    w[i2] = Cross(w[i0], w[i1]);
    // The third direction keeps the side its row points to; with that dimension lost, the
    // side that makes the set right-handed (no mirror without a third factor).
    const bool flip = k[i2] > lost ? Dot(w[i2], b[i2]) < 0.0 : Dot(w[0], Cross(w[1], w[2])) < 0.0;
    if (flip) w[i2] = Scaled(w[i2], -1.0);
    if (k[i2] > lost) k[i2] = std::fabs(Dot(rows[0], Cross(rows[1], rows[2]))) / (k[i0] * k[i1]);
    return w;
}

// Of the 24 cube rotations (signed permutations of the axes), the one nearest the
// rotation u, as a quaternion c with the largest |<c, u>|. The cube group's 48 unit
// quaternions are of three kinds: one component +-1; two components +-sqrt(1/2); all four
// +-1/2. For each kind the best match takes the signs of u's components, so the winner
// follows from the largest components of u.
Quat NearestCubeRotation(const Quat& u) {
    const float a[4] = {std::fabs(u.x), std::fabs(u.y), std::fabs(u.z), std::fabs(u.w)};
    int hi = 0;
    for (int i = 1; i < 4; ++i) hi = a[i] > a[hi] ? i : hi;
    int lo = hi == 0 ? 1 : 0;
    for (int i = 0; i < 4; ++i) lo = i != hi && a[i] > a[lo] ? i : lo;
    const float one = a[hi];
    const float two = (a[hi] + a[lo]) * 0.70710677f;
    const float all = (a[0] + a[1] + a[2] + a[3]) * 0.5f;
    Quat c(0, 0, 0, 0);
    if (one >= two && one >= all) {
        c[hi] = std::copysign(1.0f, u[hi]);
    } else if (two >= all) {
        c[hi] = std::copysign(0.70710677f, u[hi]);
        c[lo] = std::copysign(0.70710677f, u[lo]);
    } else {
        for (int i = 0; i < 4; ++i) c[i] = std::copysign(0.5f, u[i]);
    }
    return c;
}

bool NearlyEqual(float a, float b, float scale) {
    return std::fabs(a - b) <= 1e-5f * scale;
}

// The shortest rotation whose row `slot` is `axis` (a unit vector).
Quat SwingToRow(int slot, const Point3& axis) {
    Point3 target = axis[slot] < 0.0f ? -axis : axis;
    Point3 rowAxis;
    rowAxis[slot] = 1.0f;
    return Quat(AngAxis(Normalize(target ^ rowAxis), std::acos(std::min(1.0f, target[slot]))));
}

// Of the stretch rotations that describe the same stretch, choose the one nearest the
// identity (largest |w|), permuting the factors with it. With distinct factors that is
// one of the 24 cube rotations applied to u; with two equal factors the stretch is
// free to turn about the third factor's axis, so the best is the shortest swing of a
// coordinate axis onto it; with three equal factors it is the identity.
void AdjustStretchAxes(Quat& u, Point3& k) {
    const float scale = std::max({std::fabs(k.x), std::fabs(k.y), std::fabs(k.z), FLT_MIN});
    const bool e01 = NearlyEqual(k.x, k.y, scale), e02 = NearlyEqual(k.x, k.z, scale),
               e12 = NearlyEqual(k.y, k.z, scale);
    if (e01 + e02 + e12 >= 2) {  // a tolerance is not transitive: two pairs make all three
        const float mean = (k.x + k.y + k.z) / 3.0f;
        k = {mean, mean, mean};
        u.Identity();
        return;
    }
    if (e01 || e02 || e12) {
        const int odd = e12 ? 0 : (e02 ? 1 : 2);
        const float distinct = k[odd];
        const float same = (k.x + k.y + k.z - distinct) * 0.5f;
        const Point3 axis = QuatMatrix(u)[odd];
        const int slot = axis.MaxComponent();
        u = SwingToRow(slot, axis);
        k = {same, same, same};
        k[slot] = distinct;
        return;
    }
    // R * u has w = <conj(R), u>, and the cube group holds conj(R) with R: the best R is
    // the conjugate of the cube rotation nearest u.
    const Quat r = NearestCubeRotation(u).Conjugate();
    u = r * u;
    if (u.w < 0.0f) u = -u;
    // Row i of Matrix(r) is a signed axis: the stretch axis that r moves into place i.
    const float x = r.x, y = r.y, z = r.z, w = r.w;
    const float moves[3][3] = {{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w)},
                               {2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w)},
                               {2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y)}};
    const Point3 old = k;
    for (int i = 0; i < 3; ++i) {
        const float a = std::fabs(moves[i][0]), b = std::fabs(moves[i][1]),
                    c = std::fabs(moves[i][2]);
        k[i] = a >= b ? (a >= c ? old.x : old.z) : (b >= c ? old.y : old.z);
    }
}

// A rotation with a uniform scale, the usual transform of a rig: when the rows are
// orthogonal and of one length to within float noise, the stretch is that length times
// the identity and the rotation is the normalised rows; no eigen problem is solved.
bool UniformStretch(const Mat& gram, const Matrix3& m, AffineParts* parts) {
    constexpr double kNoise = 1e-6;  // relative to the squared row length
    const double mean = (gram[0][0] + gram[1][1] + gram[2][2]) * (1.0 / 3.0);
    const double tolerance = kNoise * mean;
    for (int i = 0; i < 3; ++i)
        if (!(std::fabs(gram[i][i] - mean) <= tolerance &&
              std::fabs(gram[i][(i + 1) % 3]) <= tolerance))
            return false;
    if (!(mean > 0.0)) return false;
    Mat rotation;
    for (int i = 0; i < 3; ++i) {
        const double inverse = 1.0 / std::sqrt(gram[i][i]);
        rotation[i] = {m[i].x * inverse, m[i].y * inverse, m[i].z * inverse};
    }
    const bool mirror = Dot(rotation[0], Cross(rotation[1], rotation[2])) < 0.0;
    if (mirror)
        for (Vec& row : rotation) row = Scaled(row, -1.0);
    const float k = float(std::sqrt(mean));
    parts->t = m.GetTrans();
    parts->f = mirror ? -1.0f : 1.0f;
    parts->q = QuatOfRotation(rotation).Normalize();  // the rows are orthogonal to ~1e-6 only
    parts->u.Identity();
    parts->k = {k, k, k};
    return true;
}

}  // namespace

void decomp_affine(const Matrix3& m, AffineParts* parts) {
    // m = S Q with S = V K V^T symmetric positive semi-definite and Q orthogonal; then
    // m m^T = V K^2 V^T, so V and K come from one symmetric eigen problem, and the rows
    // v[i] m = k[i] w[i] give the factors and the directions with Q = V W^T. The polar
    // factors are unique for an invertible m, so this finds the very parts of
    // Shoemake's iteration, without iterating.
    Mat rows;
    for (int i = 0; i < 3; ++i) rows[i] = {m[i].x, m[i].y, m[i].z};
    Mat gram;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) gram[i][j] = Dot(rows[i], rows[j]);
    if (UniformStretch(gram, m, parts)) return;
    const Eigen eigen = SymmetricEigen(gram);
    const Mat& v = eigen.vectors;

    Mat b;
    Vec k;
    for (int i = 0; i < 3; ++i) {
        for (int c = 0; c < 3; ++c)
            b[i][c] = v[i][0] * rows[0][c] + v[i][1] * rows[1][c] + v[i][2] * rows[2][c];
        k[i] = Length(b[i]);
    }
    const Mat w = StretchedDirections(rows, b, k);

    Mat q;  // Q = V W^T, with the eigenvectors and the directions as columns
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            q[r][c] = v[0][r] * w[0][c] + v[1][r] * w[1][c] + v[2][r] * w[2][c];
    const bool mirror = Dot(w[0], Cross(w[1], w[2])) < 0.0;  // det Q = det W, as det V = 1
    if (mirror)
        for (Vec& row : q) row = Scaled(row, -1.0);

    parts->t = m.GetTrans();
    parts->f = mirror ? -1.0f : 1.0f;
    parts->q = QuatOfRotation(q);
    // The stretch is Inverse(Matrix(u)) * K * Matrix(u): the rows of Matrix(u) are the
    // eigenvectors.
    parts->u = QuatOfRotation(v);
    parts->k = {float(k[0]), float(k[1]), float(k[2])};
    AdjustStretchAxes(parts->u, parts->k);
}

}  // namespace host
