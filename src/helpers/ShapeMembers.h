#pragma once

#include "helpers/ShapeContext.h"
#include "helpers/ShapeGlyphData.h"
#include "helpers/ShapeSink.h"

// The catalogue's members: each lays out one outline into a sink. The catalogue's
// dispatch table says in which space each works (unit half extents or world units),
// which half extents it takes and which warp its sink applies.
namespace zorvanta::shapes {

using Member = void (*)(const ShapeContext&, ShapeSink&);

// Straight lines (ShapeLines.cpp).
void Cross(const ShapeContext& ctx, ShapeSink& sink);
void CrossDiagonal(const ShapeContext& ctx, ShapeSink& sink);
void CrossAsterisk(const ShapeContext& ctx, ShapeSink& sink);
void AxisTripod(const ShapeContext& ctx, ShapeSink& sink);
void Box(const ShapeContext& ctx, ShapeSink& sink);
void FourArrows(const ShapeContext& ctx, ShapeSink& sink);
void FourPyramids(const ShapeContext& ctx, ShapeSink& sink);
void FourTriangles(const ShapeContext& ctx, ShapeSink& sink);

// Flat round outlines (ShapeRounds.cpp).
void Circle(const ShapeContext& ctx, ShapeSink& sink);
void CircleHalf(const ShapeContext& ctx, ShapeSink& sink);
void CirclePointy(const ShapeContext& ctx, ShapeSink& sink);
void Donut(const ShapeContext& ctx, ShapeSink& sink);
void Star(const ShapeContext& ctx, ShapeSink& sink);
void StarSmooth(const ShapeContext& ctx, ShapeSink& sink);
void Gear(const ShapeContext& ctx, ShapeSink& sink);
void Peanut(const ShapeContext& ctx, ShapeSink& sink);
void Drop(const ShapeContext& ctx, ShapeSink& sink);

// Solids seen as wire (ShapeSolids.cpp).
void Sphere(const ShapeContext& ctx, ShapeSink& sink);
void SphereHalf(const ShapeContext& ctx, ShapeSink& sink);
void SphereGeo(const ShapeContext& ctx, ShapeSink& sink);
void SphereIcosa(const ShapeContext& ctx, ShapeSink& sink);
void Cylinder(const ShapeContext& ctx, ShapeSink& sink);
void Cone(const ShapeContext& ctx, ShapeSink& sink);
void Diamond(const ShapeContext& ctx, ShapeSink& sink);

// Arrows (ShapeArrows.cpp).
void Arrow(const ShapeContext& ctx, ShapeSink& sink);
void ArrowDouble(const ShapeContext& ctx, ShapeSink& sink);
void ArrowCircle(const ShapeContext& ctx, ShapeSink& sink);
void ArrowCylinder(const ShapeContext& ctx, ShapeSink& sink);
void ArrowCross(const ShapeContext& ctx, ShapeSink& sink);
void ArrowMixed(const ShapeContext& ctx, ShapeSink& sink);
void CrossFlat(const ShapeContext& ctx, ShapeSink& sink);

// Flat corner polygons (ShapeCorners.cpp).
void Rectangle(const ShapeContext& ctx, ShapeSink& sink);
void Triangle(const ShapeContext& ctx, ShapeSink& sink);

// Drawn glyphs from knot tables (ShapeGlyphs.cpp): one member a table.
void DrawGlyph(const Glyph& glyph, ShapeSink& sink);
template <const Glyph& glyph>
void GlyphMember(const ShapeContext&, ShapeSink& sink) {
    DrawGlyph(glyph, sink);
}

}  // namespace zorvanta::shapes
