#include <cmath>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeGlyphData.h"
#include "helpers/ShapeMembers.h"

// The drawn glyphs: each spline of the glyph's table becomes one curve; the sink's map
// scales the unit square by size.
namespace zorvanta::shapes {

using namespace host;

namespace {

Point3 ToPoint(const float (&xy)[2]) {
    return {xy[0], xy[1], 0.0f};
}

// Handles on the knot make a corner, handles in line a smooth knot, others a broken one.
int KnotType(const Point3& p, const Point3& in, const Point3& out) {
    if (in == p && out == p) return KTYPE_CORNER;
    const Point3 side = CrossProd(p - in, out - p);
    return side.LengthSquared() < 1e-10f ? KTYPE_BEZIER : KTYPE_BEZIER_CORNER;
}

}  // namespace

void DrawGlyph(const Glyph& glyph, ShapeSink& sink) {
    for (const GlyphSpline& spline : glyph.splines) {
        KnotBuffer knots;
        for (const GlyphKnot& k : glyph.knots.subspan(size_t(spline.first), size_t(spline.count))) {
            const Point3 p = ToPoint(k.point), in = ToPoint(k.in), out = ToPoint(k.out);
            knots.Add(HandleKnot(p, in, out, KnotType(p, in, out)));
        }
        sink.Curve(knots.Knots(), spline.closed);
    }
}

}  // namespace zorvanta::shapes
