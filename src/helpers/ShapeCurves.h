#pragma once

#include "helpers/KnotBuffer.h"
#include "helpers/ShapeSink.h"

// The curve pieces the members share: knots, circles in both forms, arcs.
namespace zorvanta {

// The Bezier circle constant: a quarter arc's handle length for a radius of 1.
inline constexpr float kCircleHandle = 0.5522848f;
inline constexpr float kPi = 3.1415927f;
inline constexpr float kHalfPi = 1.5707964f;
inline constexpr float kTwoPi = 6.2831855f;
inline constexpr float kSqrtHalf = 0.70710677f;

// A knot whose segments are straight: its handles sit on it.
host::SplineKnot CornerKnot(const host::Point3& p);
// A knot with given absolute handles, by default tangent-continuous (Bezier).
host::SplineKnot HandleKnot(const host::Point3& p, const host::Point3& in, const host::Point3& out,
                            int type = host::KTYPE_BEZIER);
// The point at u (0 to 1) of the cubic segment from knot a to knot b.
host::Point3 SegmentPoint(const host::SplineKnot& a, const host::SplineKnot& b, float u);
// The point at angle a (radians) of the ellipse center + u cos a + v sin a.
host::Point3 EllipsePoint(const host::Point3& center, const host::Point3& u, const host::Point3& v,
                          float a);

// Quarter arcs of the ellipse center + u cos a + v sin a, from quarter turn `first` for
// `quarters` quarters (4 and closed for the whole loop). Drawn: points at i / n turns
// with n = steps * 4 + 4, exact on the ellipse. Built: one Bezier knot a quarter turn
// with handles kCircleHandle along the tangent.
void QuarterArcs(ShapeSink& sink, int steps, const host::Point3& center, const host::Point3& u,
                 const host::Point3& v, int first, int quarters, bool closed);
inline void Ring(ShapeSink& sink, int steps, const host::Point3& center, const host::Point3& u,
                 const host::Point3& v) {
    QuarterArcs(sink, steps, center, u, v, 0, 4, true);
}

// Appends a circular arc of the given radius around center in the plane of the unit
// vectors u and v, from angle a0 to a1 (radians, either way round), as Bezier knots no
// more than a quarter turn apart with handles tan(sweep / 4) * 4/3 * radius long. The
// first knot takes no in handle and the last no out handle (Bezier corner), so that
// the arc joins straight pieces on either side.
void AppendArc(KnotBuffer& knots, const host::Point3& center, const host::Point3& u,
               const host::Point3& v, float radius, float a0, float a1);

// p turned q quarter turns counter-clockwise about Z.
host::Point3 QuarterTurn(host::Point3 p, int q);

}  // namespace zorvanta
