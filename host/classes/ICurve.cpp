#include "host/classes/ICurve.h"

#include <algorithm>
#include <cmath>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/ICurveCtl.h"
#include "host/math/CubicBezier.h"

namespace host {

CurvePoint ICurve::GetPoint(TimeValue, int i) const {
    return i >= 0 && i < GetNumPts() ? points_[size_t(i)] : CurvePoint{};
}

bool ICurve::SetPoint(TimeValue, int i, const CurvePoint& point) {
    if (i < 0 || i >= GetNumPts()) return false;
    owner_->Edit([&] {
        points_[size_t(i)] = point;
        Sort();
    });
    return true;
}

int ICurve::Insert(const CurvePoint& point) {
    const auto at = std::upper_bound(points_.begin(), points_.end(), point.p.x,
                                     [](float x, const CurvePoint& c) { return x < c.p.x; });
    const int index = int(at - points_.begin());
    owner_->Edit([&] { points_.insert(points_.begin() + index, point); });
    return index;
}

bool ICurve::Delete(int i) {
    if (i < 0 || i >= GetNumPts()) return false;
    owner_->Edit([&] { points_.erase(points_.begin() + i); });
    return true;
}

void ICurve::Sort() {
    std::stable_sort(points_.begin(), points_.end(),
                     [](const CurvePoint& a, const CurvePoint& b) { return a.p.x < b.p.x; });
}

void ICurve::Save(ISave* isave) const {
    isave->BeginChunk(chunks::CURVE_POINTS);
    WriteRecords(isave, points_, [isave](const CurvePoint& c) {
        WriteValues(isave, c.p, c.in, c.out, int32_t(c.flags));
    });
    isave->EndChunk();
}

IOResult ICurve::Load(ILoad* iload) {
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        if (id != chunks::CURVE_POINTS) return IO_OK;
        return ReadRecords(
            iload, 3 * sizeof(Point2) + sizeof(int32_t), points_,
            [iload](CurvePoint& c) { return ReadValues(iload, c.p, c.in, c.out, c.flags); });
    });
    Sort();
    return result;
}

float ICurve::GetValue(TimeValue, float x) const {
    if (points_.empty()) return 0.0f;
    if (x <= points_.front().p.x) return points_.front().p.y;
    if (x >= points_.back().p.x) return points_.back().p.y;
    const auto next = std::upper_bound(points_.begin(), points_.end(), x,
                                       [](float v, const CurvePoint& c) { return v < c.p.x; });
    return SegmentValue(size_t(next - points_.begin()) - 1, x);
}

float ICurve::SegmentValue(size_t k, float x) const {
    const CurvePoint& a = points_[k];
    const CurvePoint& b = points_[k + 1];
    const float span = b.p.x - a.p.x;
    if (span <= 0.0f) return b.p.y;
    // Handles: none for corners, else clamped into the segment so x grows with u.
    const bool aCurved = (a.flags & CURVEP_BEZIER) && !(a.flags & CURVEP_CORNER);
    const bool bCurved = (b.flags & CURVEP_BEZIER) && !(b.flags & CURVEP_CORNER);
    const Point2 out = aCurved ? a.out : Point2();
    const Point2 in = bCurved ? b.in : Point2();
    const float x1 = a.p.x + std::clamp(out.x, 0.0f, span);
    const float x2 = b.p.x + std::clamp(in.x, -span, 0.0f);
    const float y1 = a.p.y + out.y, y2 = b.p.y + in.y;
    // The parameter where the segment reaches x: bisection, x being monotonic in u.
    float lo = 0.0f, hi = 1.0f;
    for (int i = 0; i < 40; ++i) {
        const float mid = 0.5f * (lo + hi);
        (CubicBezier(a.p.x, x1, x2, b.p.x, mid) < x ? lo : hi) = mid;
    }
    return CubicBezier(a.p.y, y1, y2, b.p.y, 0.5f * (lo + hi));
}

}  // namespace host
