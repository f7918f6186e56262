#pragma once

#include <vector>

#include "host/classes/SplineKnot.h"
#include "host/math/Box3.h"
#include "host/math/Matrix3.h"
#include "host/object/IOResult.h"

namespace host {

class ISave;
class ILoad;

// How InterpCurve3D and TangentCurve3D read their parameter u (0 to 1).
inline constexpr int SPLINE_INTERP_SIMPLE = 0;      // each segment takes an equal share of u
inline constexpr int SPLINE_INTERP_NORMALIZED = 1;  // u is the fraction of the spline's length

// A piecewise cubic Bezier curve through a list of knots, open or closed. Segment i runs
// from knot i to knot i + 1 (the last segment of a closed spline back to knot 0), with
// knot i's out vector and knot i + 1's in vector as its inner control points; a segment
// whose first knot has line type LTYPE_LINE is the straight chord. All positions are in
// the spline's own space, in world units.
//
// Handles are what is stored: after moving knots of the smooth or corner kind, call
// ComputeBezPoints. Every edit drops the geometry cache (bounding box, length table),
// which is rebuilt on the next query that needs it.
class Spline3D {
public:
    int KnotCount() const { return int(knots_.size()); }
    // Inserts k before knot `where`, or appends it for -1 or a position past the end;
    // returns the new knot's index.
    int AddKnot(const SplineKnot& k, int where = -1);
    bool DeleteKnot(int i);
    // Removes every knot; the spline stays open or closed as it was.
    void NewSpline();

    // Knot access. Reads of a knot that does not exist give a default knot (zero
    // positions); writes to one are refused with false.
    SplineKnot GetKnot(int i) const;
    bool SetKnot(int i, const SplineKnot& k);
    Point3 GetKnotPoint(int i) const { return GetKnot(i).Knot(); }
    bool SetKnotPoint(int i, const Point3& p);
    Point3 GetInVec(int i) const { return GetKnot(i).InVec(); }
    bool SetInVec(int i, const Point3& p);
    Point3 GetOutVec(int i) const { return GetKnot(i).OutVec(); }
    bool SetOutVec(int i, const Point3& p);
    int GetKnotType(int i) const { return GetKnot(i).Ktype(); }
    bool SetKnotType(int i, int type);
    int GetLineType(int i) const { return GetKnot(i).Ltype(); }
    bool SetLineType(int i, int type);

    // The three vertices of every knot in a row: in vector, point, out vector of knot 0,
    // then of knot 1, and so on. This is how deformers see a spline, so that handles
    // move with their knots.
    int Verts() const { return 3 * KnotCount(); }
    Point3 GetVert(int i) const;
    bool SetVert(int i, const Point3& p);

    bool Closed() const { return closed_; }
    void SetClosed(bool closed = true);
    void SetOpen() { SetClosed(false); }
    // 0 below two knots; otherwise one less than the knots when open, as many when closed.
    int Segments() const;

    // Recomputes the handles of smooth and corner knots from the knot positions. A
    // smooth knot's handles lie on the line through its neighbours (the Catmull-Rom
    // direction), each a third of the distance to its own neighbour, so the curve's
    // tangent is continuous there; an end knot of an open spline aims at its only
    // neighbour. A corner knot's handles sit on the knot, which makes its segments
    // straight. Bezier knots keep their handles.
    void ComputeBezPoints();

    // The point at u (0 to 1) along one segment; the origin for a segment that does not
    // exist.
    Point3 InterpBezier3D(int segment, float u) const;
    // The derivative d(point)/du there, in world units per unit of u.
    Point3 TangentBezier3D(int segment, float u) const;
    // The point at u (clamped to 0 to 1) along the whole spline: at 1 the last knot, or
    // knot 0 again when closed. A spline of one knot gives that knot, an empty one the
    // origin.
    Point3 InterpCurve3D(float u, int ptype = SPLINE_INTERP_SIMPLE) const;
    Point3 TangentCurve3D(float u, int ptype = SPLINE_INTERP_SIMPLE) const;

    // Moves the knots and both handles of each through tm.
    void Transform(const Matrix3& tm);
    // The tight box of the curve itself (the segments' extremes, solved exactly), not of
    // the handles; the knot for a single knot; empty for no knots.
    Box3 GetBBox() const;
    // The length in world units, summed over chords of the sampled curve.
    float SplineLength() const;

    // The knots and whether the spline is closed, as chunks. Load fails on a knot or line
    // type that does not exist, leaving the spline as it was.
    void Save(ISave* isave) const;
    IOResult Load(ILoad* iload);

    // True while the geometry cache is stale.
    bool Dirty() const { return dirty_; }
    void InvalidateGeomCache() { dirty_ = true; }

private:
    struct Hull {
        Point3 p[4];  // the segment's cubic control points
    };
    struct Location {
        int segment;
        float u;
    };

    bool Valid(int i) const { return i >= 0 && i < KnotCount(); }
    // The knot after i along the spline, or -1 at the end of an open one.
    int Next(int i) const;
    int Prev(int i) const;
    void ComputeSmoothHandles(int i);
    Hull SegmentHull(int segment) const;
    // Where u of the whole spline falls: segment and the parameter inside it.
    Location Locate(float u, int ptype) const;
    Location LocateByLength(float u) const;
    void UpdateGeomCache() const;

    std::vector<SplineKnot> knots_;
    bool closed_ = false;

    // The geometry cache: bounding box and the cumulative chord lengths of the sampled
    // curve (kLengthSamples chords per segment, starting with 0).
    mutable bool dirty_ = true;
    mutable Box3 bbox_;
    mutable std::vector<float> lengths_;
};

}  // namespace host
