#include "host/classes/Spline3D.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/math/CubicBezier.h"

namespace host {

namespace {

// Chords per segment for the length table: a quarter circle sampled this finely comes
// within a relative 1e-4 of its true length.
constexpr int kLengthSamples = 32;

Point3 BezierPoint(const Point3 (&p)[4], float u) {
    return CubicBezier(p[0], p[1], p[2], p[3], u);
}

Point3 BezierDerivative(const Point3 (&p)[4], float u) {
    const float v = 1.0f - u;
    return (p[1] - p[0]) * (3.0f * v * v) + (p[2] - p[1]) * (6.0f * v * u) +
           (p[3] - p[2]) * (3.0f * u * u);
}

// The parameters in (0, 1) where one coordinate of the cubic has a zero derivative:
// the roots of a*u^2 + b*u + c with the coefficients of d/du divided by 3. Returns the
// count written to roots.
int CoordinateExtremes(double p0, double p1, double p2, double p3, double (&roots)[2]) {
    const double a = -p0 + 3.0 * p1 - 3.0 * p2 + p3;
    const double b = 2.0 * (p0 - 2.0 * p1 + p2);
    const double c = p1 - p0;
    const double scale = std::max({std::fabs(a), std::fabs(b), std::fabs(c)});
    if (scale == 0.0) return 0;
    int n = 0;
    auto keep = [&](double u) {
        if (u > 0.0 && u < 1.0) roots[n++] = u;
    };
    if (std::fabs(a) <= 1e-12 * scale) {  // the derivative is linear
        if (b != 0.0) keep(-c / b);
        return n;
    }
    const double disc = b * b - 4.0 * a * c;
    if (disc < 0.0) return 0;
    const double root = std::sqrt(disc);
    keep((-b + root) / (2.0 * a));
    keep((-b - root) / (2.0 * a));
    return n;
}

// Grows box by a segment's curve: its ends and every interior extreme of each coordinate.
void AddSegmentToBox(const Point3 (&p)[4], Box3& box) {
    box += p[0];
    box += p[3];
    for (int axis = 0; axis < 3; ++axis) {
        double roots[2];
        const int n = CoordinateExtremes(p[0][axis], p[1][axis], p[2][axis], p[3][axis], roots);
        for (int r = 0; r < n; ++r) box += BezierPoint(p, float(roots[r]));
    }
}

void WriteKnot(ISave* isave, const SplineKnot& k) {
    WriteValues(isave, int32_t(k.Ktype()), int32_t(k.Ltype()), k.Knot(), k.InVec(), k.OutVec());
}

IOResult ReadKnot(ILoad* iload, SplineKnot& k) {
    int32_t ktype = 0, ltype = 0;
    Point3 point, in, out;
    if (ReadValues(iload, ktype, ltype, point, in, out) != IO_OK) return IO_ERROR;
    if (ktype < KTYPE_AUTO || ktype > KTYPE_BEZIER_CORNER)
        return LoadError(iload, "a knot has the unknown type " + std::to_string(ktype));
    if (ltype < LTYPE_CURVE || ltype > LTYPE_LINE)
        return LoadError(iload, "a knot has the unknown line type " + std::to_string(ltype));
    k = SplineKnot(ktype, ltype, point, in, out);
    return IO_OK;
}

}  // namespace

int Spline3D::AddKnot(const SplineKnot& k, int where) {
    if (where < 0 || where > KnotCount()) where = KnotCount();
    knots_.insert(knots_.begin() + where, k);
    InvalidateGeomCache();
    return where;
}

bool Spline3D::DeleteKnot(int i) {
    if (!Valid(i)) return false;
    knots_.erase(knots_.begin() + i);
    InvalidateGeomCache();
    return true;
}

void Spline3D::NewSpline() {
    knots_.clear();
    InvalidateGeomCache();
}

SplineKnot Spline3D::GetKnot(int i) const {
    return Valid(i) ? knots_[size_t(i)] : SplineKnot();
}

bool Spline3D::SetKnot(int i, const SplineKnot& k) {
    if (!Valid(i)) return false;
    knots_[size_t(i)] = k;
    InvalidateGeomCache();
    return true;
}

bool Spline3D::SetKnotPoint(int i, const Point3& p) {
    SplineKnot k = GetKnot(i);
    k.SetKnot(p);
    return SetKnot(i, k);
}

bool Spline3D::SetInVec(int i, const Point3& p) {
    SplineKnot k = GetKnot(i);
    k.SetInVec(p);
    return SetKnot(i, k);
}

bool Spline3D::SetOutVec(int i, const Point3& p) {
    SplineKnot k = GetKnot(i);
    k.SetOutVec(p);
    return SetKnot(i, k);
}

bool Spline3D::SetKnotType(int i, int type) {
    SplineKnot k = GetKnot(i);
    k.SetKtype(type);
    return SetKnot(i, k);
}

bool Spline3D::SetLineType(int i, int type) {
    SplineKnot k = GetKnot(i);
    k.SetLtype(type);
    return SetKnot(i, k);
}

Point3 Spline3D::GetVert(int i) const {
    if (i < 0 || i >= Verts()) return {};
    const SplineKnot& k = knots_[size_t(i / 3)];
    const Point3* verts[3] = {&k.InVec(), &k.Knot(), &k.OutVec()};
    return *verts[i % 3];
}

bool Spline3D::SetVert(int i, const Point3& p) {
    if (i < 0 || i >= Verts()) return false;
    const int knot = i / 3;
    switch (i % 3) {
        case 0:
            return SetInVec(knot, p);
        case 1:
            return SetKnotPoint(knot, p);
        default:
            return SetOutVec(knot, p);
    }
}

void Spline3D::SetClosed(bool closed) {
    closed_ = closed;
    InvalidateGeomCache();
}

int Spline3D::Segments() const {
    const int n = KnotCount();
    if (n < 2) return 0;
    return closed_ ? n : n - 1;
}

int Spline3D::Next(int i) const {
    if (i + 1 < KnotCount()) return i + 1;
    return closed_ ? 0 : -1;
}

int Spline3D::Prev(int i) const {
    if (i > 0) return i - 1;
    return closed_ ? KnotCount() - 1 : -1;
}

void Spline3D::ComputeSmoothHandles(int i) {
    SplineKnot& k = knots_[size_t(i)];
    const Point3 p = k.Knot();
    const int prev = Prev(i), next = Next(i);
    const Point3 before = prev >= 0 ? knots_[size_t(prev)].Knot() : p;
    const Point3 after = next >= 0 ? knots_[size_t(next)].Knot() : p;
    // An end knot mirrors its one neighbour, so both handles share one direction.
    const float inLength = Length(p - (prev >= 0 ? before : after)) / 3.0f;
    const float outLength = Length((next >= 0 ? after : before) - p) / 3.0f;
    const Point3 direction = Normalize(after - before);
    k.SetInVec(p - direction * inLength);
    k.SetOutVec(p + direction * outLength);
}

void Spline3D::ComputeBezPoints() {
    for (int i = 0; i < KnotCount(); ++i) {
        SplineKnot& k = knots_[size_t(i)];
        if (k.Ktype() == KTYPE_AUTO) {
            ComputeSmoothHandles(i);
        } else if (k.Ktype() == KTYPE_CORNER) {
            k.SetInVec(k.Knot());
            k.SetOutVec(k.Knot());
        }
    }
    InvalidateGeomCache();
}

Spline3D::Hull Spline3D::SegmentHull(int segment) const {
    const SplineKnot& a = knots_[size_t(segment)];
    const SplineKnot& b = knots_[size_t(Next(segment))];
    if (a.Ltype() == LTYPE_LINE) {
        // Handles at thirds of the chord make the cubic the chord at uniform speed.
        const Point3 third = (b.Knot() - a.Knot()) / 3.0f;
        return {{a.Knot(), a.Knot() + third, b.Knot() - third, b.Knot()}};
    }
    return {{a.Knot(), a.OutVec(), b.InVec(), b.Knot()}};
}

Point3 Spline3D::InterpBezier3D(int segment, float u) const {
    if (segment < 0 || segment >= Segments()) return {};
    return BezierPoint(SegmentHull(segment).p, u);
}

Point3 Spline3D::TangentBezier3D(int segment, float u) const {
    if (segment < 0 || segment >= Segments()) return {};
    return BezierDerivative(SegmentHull(segment).p, u);
}

Spline3D::Location Spline3D::Locate(float u, int ptype) const {
    u = std::clamp(u, 0.0f, 1.0f);
    if (ptype == SPLINE_INTERP_NORMALIZED && SplineLength() > 0.0f) return LocateByLength(u);
    const int segments = Segments();
    const float scaled = u * float(segments);
    const int segment = std::min(int(scaled), segments - 1);
    return {segment, scaled - float(segment)};
}

Spline3D::Location Spline3D::LocateByLength(float u) const {
    // The chord of the length table that holds the wanted length, then the fraction of
    // the way along it, mapped back to the segment's own parameter.
    const float wanted = u * lengths_.back();
    const auto after = std::upper_bound(lengths_.begin() + 1, lengths_.end() - 1, wanted);
    const int chord = int(after - lengths_.begin()) - 1;
    const float chordLength = lengths_[size_t(chord) + 1] - lengths_[size_t(chord)];
    const float along =
        chordLength > 0.0f ? (wanted - lengths_[size_t(chord)]) / chordLength : 0.0f;
    const int segment = chord / kLengthSamples;
    const float local =
        (float(chord % kLengthSamples) + std::clamp(along, 0.0f, 1.0f)) / float(kLengthSamples);
    return {segment, local};
}

Point3 Spline3D::InterpCurve3D(float u, int ptype) const {
    if (Segments() == 0) return GetKnotPoint(0);
    const Location at = Locate(u, ptype);
    return InterpBezier3D(at.segment, at.u);
}

Point3 Spline3D::TangentCurve3D(float u, int ptype) const {
    if (Segments() == 0) return {};
    const Location at = Locate(u, ptype);
    return TangentBezier3D(at.segment, at.u);
}

void Spline3D::Transform(const Matrix3& tm) {
    for (SplineKnot& k : knots_) {
        k.SetKnot(tm.PointTransform(k.Knot()));
        k.SetInVec(tm.PointTransform(k.InVec()));
        k.SetOutVec(tm.PointTransform(k.OutVec()));
    }
    InvalidateGeomCache();
}

void Spline3D::UpdateGeomCache() const {
    if (!dirty_) return;
    bbox_.Init();
    if (!knots_.empty()) bbox_ += knots_.front().Knot();
    lengths_.assign(1, 0.0f);
    for (int s = 0; s < Segments(); ++s) {
        const Hull hull = SegmentHull(s);
        AddSegmentToBox(hull.p, bbox_);
        Point3 last = hull.p[0];
        for (int i = 1; i <= kLengthSamples; ++i) {
            const Point3 p = BezierPoint(hull.p, float(i) / kLengthSamples);
            lengths_.push_back(lengths_.back() + Length(p - last));
            last = p;
        }
    }
    dirty_ = false;
}

Box3 Spline3D::GetBBox() const {
    UpdateGeomCache();
    return bbox_;
}

float Spline3D::SplineLength() const {
    UpdateGeomCache();
    return lengths_.back();
}

void Spline3D::Save(ISave* isave) const {
    isave->BeginChunk(chunks::SPLINE_KNOTS);
    WriteRecords(isave, knots_, [isave](const SplineKnot& k) { WriteKnot(isave, k); });
    isave->EndChunk();
    WriteFlagChunk(isave, chunks::SPLINE_CLOSED, closed_);
}

IOResult Spline3D::Load(ILoad* iload) {
    Spline3D loaded;
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        if (id == chunks::SPLINE_KNOTS)
            return ReadRecords(iload, 2 * sizeof(int32_t) + 3 * sizeof(Point3), loaded.knots_,
                               [iload](SplineKnot& k) { return ReadKnot(iload, k); });
        return id == chunks::SPLINE_CLOSED ? ReadFlag(iload, loaded.closed_) : IO_OK;
    });
    if (result != IO_OK) return IO_ERROR;
    *this = std::move(loaded);
    return IO_OK;
}

}  // namespace host
