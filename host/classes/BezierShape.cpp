#include "host/classes/BezierShape.h"

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"

namespace host {

void BezierShape::NewShape() {
    splines_.clear();
    UpdateSels();
}

Spline3D* BezierShape::NewSpline() {
    return &splines_.emplace_back();
}

bool BezierShape::DeleteSpline(int i) {
    if (!GetSpline(i)) return false;
    splines_.erase(splines_.begin() + i);
    // The selections of the splines after i move down with them.
    if (size_t(i) < vertSel_.size()) vertSel_.erase(vertSel_.begin() + i);
    if (size_t(i) < segSel_.size()) segSel_.erase(segSel_.begin() + i);
    UpdateSels();
    return true;
}

Spline3D* BezierShape::GetSpline(int i) {
    return i >= 0 && i < SplineCount() ? &splines_[size_t(i)] : nullptr;
}

const Spline3D* BezierShape::GetSpline(int i) const {
    return i >= 0 && i < SplineCount() ? &splines_[size_t(i)] : nullptr;
}

int BezierShape::NumPoints() const {
    int n = 0;
    for (const Spline3D& s : splines_) n += s.Verts();
    return n;
}

BezierShape::VertRef BezierShape::FindVert(int i) const {
    if (i < 0) return {-1, 0};
    for (int s = 0; s < SplineCount(); ++s) {
        const int verts = splines_[size_t(s)].Verts();
        if (i < verts) return {s, i};
        i -= verts;
    }
    return {-1, 0};
}

Point3 BezierShape::GetPoint(int i) const {
    const VertRef v = FindVert(i);
    return v.spline >= 0 ? splines_[size_t(v.spline)].GetVert(v.vert) : Point3();
}

bool BezierShape::SetPoint(int i, const Point3& p) {
    const VertRef v = FindVert(i);
    return v.spline >= 0 && splines_[size_t(v.spline)].SetVert(v.vert, p);
}

void BezierShape::UpdateSels() {
    const size_t n = splines_.size();
    vertSel_.resize(n);
    segSel_.resize(n);
    for (size_t i = 0; i < n; ++i) {
        vertSel_[i].SetSize(splines_[i].Verts(), 1);
        segSel_[i].SetSize(splines_[i].Segments(), 1);
    }
    polySel_.SetSize(int(n), 1);
}

BitArray* BezierShape::VertSel(int i) {
    return i >= 0 && size_t(i) < vertSel_.size() ? &vertSel_[size_t(i)] : nullptr;
}

BitArray* BezierShape::SegSel(int i) {
    return i >= 0 && size_t(i) < segSel_.size() ? &segSel_[size_t(i)] : nullptr;
}

void BezierShape::InvalidateGeomCache() {
    for (Spline3D& s : splines_) s.InvalidateGeomCache();
}

Box3 BezierShape::GetBoundingBox() const {
    Box3 box;
    for (const Spline3D& s : splines_) box += s.GetBBox();
    return box;
}

namespace {

// Chords per segment for adaptive steps.
constexpr int kAdaptiveChords = 10;

// A segment is straight when both handles lie on its chord.
bool IsStraight(const Spline3D& spline, int segment) {
    const int next = (segment + 1) % spline.KnotCount();
    const SplineKnot a = spline.GetKnot(segment), b = spline.GetKnot(next);
    if (a.Ltype() == LTYPE_LINE) return true;
    const Point3 chord = b.Knot() - a.Knot();
    if (chord.LengthSquared() == 0.0f) return a.OutVec() == a.Knot() && b.InVec() == b.Knot();
    const float tolerance = 1e-5f * (chord.Length() + 1.0f);
    auto onChord = [&](const Point3& p) {
        return CrossProd(p - a.Knot(), chord).Length() <= tolerance * chord.Length();
    };
    return onChord(a.OutVec()) && onChord(b.InVec());
}

std::vector<Point3> SplinePoints(const Spline3D& spline, int steps, bool optimize) {
    const int chords = steps < 0 ? kAdaptiveChords : steps + 1;
    std::vector<Point3> points;
    if (spline.KnotCount() == 0) return points;
    points.push_back(spline.GetKnotPoint(0));
    for (int seg = 0; seg < spline.Segments(); ++seg) {
        const int n = optimize && IsStraight(spline, seg) ? 1 : chords;
        for (int k = 1; k <= n; ++k)
            points.push_back(spline.InterpBezier3D(seg, float(k) / float(n)));
    }
    // A closed spline's last segment ends on its first knot, which the line closes to.
    if (spline.Closed() && points.size() > 1) points.pop_back();
    return points;
}

}  // namespace

WireOutline BezierShape::DisplayOutline() const {
    WireOutline outline;
    for (const Spline3D& s : splines_) {
        std::vector<Point3> points = SplinePoints(s, steps, optimize);
        if (points.size() > 1) outline.AddLine(std::move(points), s.Closed());
    }
    return outline;
}

void BezierShape::Transform(const Matrix3& tm) {
    for (Spline3D& s : splines_) s.Transform(tm);
}

void BezierShape::Save(ISave* isave) const {
    isave->WriteChunk(chunks::SHAPE_STEPS, int32_t(steps));
    WriteFlagChunk(isave, chunks::SHAPE_OPTIMIZE, optimize);
    for (size_t i = 0; i < splines_.size(); ++i) SaveSpline(isave, i);
    WriteBitsChunk(isave, chunks::SHAPE_POLY_SEL, polySel_);
}

void BezierShape::SaveSpline(ISave* isave, size_t i) const {
    isave->BeginChunk(chunks::SHAPE_SPLINE);
    isave->BeginChunk(chunks::SHAPE_SPLINE_CURVE);
    splines_[i].Save(isave);
    isave->EndChunk();
    // Selections lag behind splines added since the last UpdateSels.
    if (i < vertSel_.size()) WriteBitsChunk(isave, chunks::SHAPE_SPLINE_VERT_SEL, vertSel_[i]);
    if (i < segSel_.size()) WriteBitsChunk(isave, chunks::SHAPE_SPLINE_SEG_SEL, segSel_[i]);
    isave->EndChunk();
}

IOResult BezierShape::Load(ILoad* iload) {
    BezierShape loaded;
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        switch (id) {
            case chunks::SHAPE_STEPS:
                return iload->ReadValue(loaded.steps);
            case chunks::SHAPE_OPTIMIZE:
                return ReadFlag(iload, loaded.optimize);
            case chunks::SHAPE_SPLINE:
                return loaded.LoadSpline(iload);
            case chunks::SHAPE_POLY_SEL:
                return ReadBits(iload, loaded.polySel_);
        }
        return IO_OK;
    });
    if (result != IO_OK) return IO_ERROR;
    loaded.UpdateSels();
    *this = std::move(loaded);
    return IO_OK;
}

IOResult BezierShape::LoadSpline(ILoad* iload) {
    // Splines and their selections stay in step: each spline read adds one of each.
    Spline3D& spline = splines_.emplace_back();
    BitArray& verts = vertSel_.emplace_back();
    BitArray& segs = segSel_.emplace_back();
    return ReadChunks(iload, [&](uint16_t id) {
        switch (id) {
            case chunks::SHAPE_SPLINE_CURVE:
                return spline.Load(iload);
            case chunks::SHAPE_SPLINE_VERT_SEL:
                return ReadBits(iload, verts);
            case chunks::SHAPE_SPLINE_SEG_SEL:
                return ReadBits(iload, segs);
        }
        return IO_OK;
    });
}

}  // namespace host
