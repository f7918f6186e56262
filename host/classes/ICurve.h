#pragma once

#include <vector>

#include "host/core/TimeValue.h"
#include "host/math/Point2.h"
#include "host/object/IOResult.h"

namespace host {

class ICurveCtl;
class ISave;
class ILoad;

// Point flags.
inline constexpr int CURVEP_BEZIER = 1 << 0;  // the handles shape the curve
inline constexpr int CURVEP_CORNER = 1 << 1;  // straight lines in and out

// A point of a curve: its position, and its handles as offsets from it (in points
// backwards, out forwards, in x).
struct CurvePoint {
    Point2 p;
    Point2 in;
    Point2 out;
    int flags = CURVEP_BEZIER;
    bool operator==(const CurvePoint&) const = default;
};

// One curve of a curve control: points sorted by x, joined by cubic Bezier segments
// whose handles are kept within their segment's x span, so the curve is a function of
// x. Before the first point and after the last the end values hold. Edits go through
// the owning control, which records them for undo.
class ICurve {
public:
    int GetNumPts() const { return int(points_.size()); }
    CurvePoint GetPoint(TimeValue, int i) const;
    // Refused (false) for an index out of range. The point keeps its place in x order.
    bool SetPoint(TimeValue t, int i, const CurvePoint& point);
    // Inserts in x order; returns the index it took.
    int Insert(const CurvePoint& point);
    bool Delete(int i);
    // The curve's y at x.
    float GetValue(TimeValue t, float x) const;

private:
    friend class ICurveCtl;
    explicit ICurve(ICurveCtl* owner) : owner_(owner) {}
    // The points, as chunks; Load puts them in x order, which the curve relies on.
    void Save(ISave* isave) const;
    IOResult Load(ILoad* iload);
    void Sort();
    float SegmentValue(size_t k, float x) const;

    ICurveCtl* owner_;
    std::vector<CurvePoint> points_;
};

}  // namespace host
