#include "helpers/ControlHelperWidgets.h"

#include "helpers/ShapeCatalogue.h"

namespace zorvanta {

namespace {

// What one shape type reads besides its size, its uniform switch and its warp (which
// the catalogue tells).
struct ShapeReads {
    bool height;  // has depth: reads height when not uniform
    bool thickness;
    bool corner;
    bool steps;
};

// By shape index. The glyphs read size alone; flat shapes have no height.
// clang-format off
constexpr ShapeReads kReads[kShapeCount] = {
    /* None */           {false, false, false, false},
    /* Cross */          {true,  false, false, false},
    /* CrossDiagonal */  {true,  false, false, false},
    /* CrossAsterisk */  {true,  false, false, false},
    /* AxisTripod */     {true,  true,  false, false},
    /* Circle */         {false, false, false, true},
    /* CircleHalf */     {false, false, false, true},
    /* CirclePointy */   {false, true,  false, true},
    /* Donut */          {false, true,  false, true},
    /* Sphere */         {true,  false, false, true},
    /* SphereHalf */     {true,  false, false, true},
    /* Rectangle */      {false, false, true,  true},
    /* Box */            {true,  false, false, true},
    /* Triangle */       {false, false, true,  true},
    /* Cone */           {true,  false, false, true},
    /* Cylinder */       {true,  false, false, true},
    /* Arrow */          {false, true,  false, true},
    /* ArrowDouble */    {false, true,  false, true},
    /* ArrowCircle */    {false, true,  false, true},
    /* ArrowCylinder */  {false, true,  false, true},
    /* ArrowCross */     {false, true,  false, true},
    /* ArrowMixed */     {false, true,  false, true},
    /* CrossFlat */      {false, true,  false, true},
    /* Drop */           {false, false, false, true},
    /* Star */           {false, true,  false, true},
    /* StarSmooth */     {false, true,  false, true},
    /* Peanut */         {false, true,  false, true},
    /* Gear */           {false, true,  false, true},
    /* Character */      {false, false, false, false},
    /* Eye */            {false, false, false, false},
    /* Lips */           {false, false, false, false},
    /* Hand */           {false, false, false, false},
    /* Foot */           {false, false, false, false},
    /* Shoe */           {false, false, false, false},
    /* FourArrows */     {false, true,  false, false},
    /* FourPyramids */   {false, true,  false, false},
    /* FourTriangles */  {false, true,  false, false},
    /* IKFK */           {false, false, false, false},
    /* SphereIcosa */    {true,  false, false, false},
    /* SphereGeo */      {true,  false, false, true},
    /* Face */           {false, false, false, false},
    /* Nose */           {false, false, false, false},
    /* Diamond */        {true,  false, false, false},
};
// clang-format on

}  // namespace

ControlHelperWidgets EnabledWidgets(int type, bool uniform) {
    if (type <= int(ShapeType::None) || type >= kShapeCount) return {};
    const ShapeReads& reads = kReads[type];
    const ShapeSizing sizing = ShapeSizingOf(type);
    const bool perAxis = sizing.byUniform && !uniform;
    return {sizing.byUniform, !perAxis,    perAxis,      reads.height && perAxis, reads.thickness,
            reads.corner,     reads.steps, sizing.warps, sizing.warpAxis};
}

}  // namespace zorvanta
