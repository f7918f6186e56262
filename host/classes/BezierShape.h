#pragma once

#include <deque>
#include <vector>

#include "host/classes/Spline3D.h"
#include "host/core/BitArray.h"
#include "host/object/WireOutline.h"

namespace host {

// A shape made of Bezier splines, in the shape's own space, with the interpolation
// settings its display and renderers use and the sub-object selection sets of its
// vertices, segments and splines.
class BezierShape {
public:
    // Interpolation steps per segment for drawing and rendering; -1 asks for adaptive
    // steps. With optimize, straight segments are drawn without intermediate steps.
    int steps = 6;
    bool optimize = true;

    // Removes every spline and empties the selections; steps and optimize stay.
    void NewShape();
    // Appends an empty open spline. The pointer stays valid while splines are added,
    // until the shape is cleared or a spline deleted.
    Spline3D* NewSpline();
    bool DeleteSpline(int i);
    int SplineCount() const { return int(splines_.size()); }
    // Spline i, or null.
    Spline3D* GetSpline(int i);
    const Spline3D* GetSpline(int i) const;

    // The vertices of all splines in a row, three per knot (see Spline3D::GetVert).
    int NumPoints() const;
    Point3 GetPoint(int i) const;
    bool SetPoint(int i, const Point3& p);

    // Sizes the selection sets to the splines as they are now, keeping the bits that
    // still have a vertex, segment or spline: after building or editing the splines.
    void UpdateSels();
    // The selection of spline i's vertices (three per knot) or segments, or null.
    BitArray* VertSel(int i);
    BitArray* SegSel(int i);
    // One bit per spline.
    BitArray& PolySel() { return polySel_; }

    // Drops the geometry caches of every spline, after edits made behind their backs.
    void InvalidateGeomCache();
    // The union of the splines' curve boxes; empty for a shape without knots.
    Box3 GetBoundingBox() const;
    // The splines as lines for drawing, one a spline (closed for a closed spline): each
    // segment as steps + 1 chords (a fixed fine count for adaptive steps), or with
    // optimize as one chord when it is straight.
    WireOutline DisplayOutline() const;
    // Moves every knot and handle through tm.
    void Transform(const Matrix3& tm);

    // The splines, the interpolation settings and the selections, as chunks. Load sizes
    // the selections to the splines it read (as UpdateSels does); when it fails, the
    // shape stays as it was.
    void Save(ISave* isave) const;
    IOResult Load(ILoad* iload);

private:
    struct VertRef {
        int spline;  // -1 when out of range
        int vert;
    };
    // Spline and vertex of point i of the whole shape.
    VertRef FindVert(int i) const;
    // Spline i with its selections, as one chunk; Load appends the spline it reads.
    void SaveSpline(ISave* isave, size_t i) const;
    IOResult LoadSpline(ILoad* iload);

    std::deque<Spline3D> splines_;  // a deque keeps pointers stable as splines are added
    std::vector<BitArray> vertSel_;
    std::vector<BitArray> segSel_;
    BitArray polySel_;
};

}  // namespace host
