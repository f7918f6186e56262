#include "helpers/ControlHelperWidgets.h"

#include "helpers/ShapeCatalogue.h"

namespace zorvanta {

namespace {

// What one shape type reads besides its size.
struct ShapeReads {
    bool uniform;  // offers the uniform switch and per-axis sizes
    bool height;   // has depth: reads height when not uniform
    bool thickness;
    bool corner;
    bool steps;
    bool warpAmount;
    bool warpAxis;
};

// By shape index. The glyphs read size alone; flat shapes have no height.
// clang-format off
constexpr ShapeReads kReads[kShapeCount] = {
    /* None */           {false, false, false, false, false, false, false},
    /* Cross */          {true,  true,  false, false, false, false, false},
    /* CrossDiagonal */  {true,  true,  false, false, false, false, false},
    /* CrossAsterisk */  {true,  true,  false, false, false, false, false},
    /* AxisTripod */     {true,  true,  true,  false, false, false, false},
    /* Circle */         {true,  false, false, false, true,  true,  false},
    /* CircleHalf */     {true,  false, false, false, true,  true,  false},
    /* CirclePointy */   {false, false, true,  false, true,  false, false},
    /* Donut */          {true,  false, true,  false, true,  true,  false},
    /* Sphere */         {true,  true,  false, false, true,  false, false},
    /* SphereHalf */     {true,  true,  false, false, true,  false, false},
    /* Rectangle */      {true,  false, false, true,  true,  true,  true},
    /* Box */            {true,  true,  false, false, true,  true,  true},
    /* Triangle */       {true,  false, false, true,  true,  false, false},
    /* Cone */           {true,  true,  false, false, true,  false, false},
    /* Cylinder */       {true,  true,  false, false, true,  true,  false},
    /* Arrow */          {false, false, true,  false, true,  true,  true},
    /* ArrowDouble */    {false, false, true,  false, true,  true,  true},
    /* ArrowCircle */    {false, false, true,  false, true,  false, false},
    /* ArrowCylinder */  {false, false, true,  false, true,  false, false},
    /* ArrowCross */     {false, false, true,  false, true,  true,  false},
    /* ArrowMixed */     {false, false, true,  false, true,  true,  false},
    /* CrossFlat */      {false, false, true,  false, true,  true,  false},
    /* Drop */           {false, false, false, false, true,  false, false},
    /* Star */           {false, false, true,  false, true,  true,  false},
    /* StarSmooth */     {false, false, true,  false, true,  true,  false},
    /* Peanut */         {false, false, true,  false, true,  true,  false},
    /* Gear */           {false, false, true,  false, true,  true,  false},
    /* Character */      {false, false, false, false, false, false, false},
    /* Eye */            {false, false, false, false, false, false, false},
    /* Lips */           {false, false, false, false, false, false, false},
    /* Hand */           {false, false, false, false, false, false, false},
    /* Foot */           {false, false, false, false, false, false, false},
    /* Shoe */           {false, false, false, false, false, false, false},
    /* FourArrows */     {false, false, true,  false, false, false, false},
    /* FourPyramids */   {false, false, true,  false, false, false, false},
    /* FourTriangles */  {false, false, true,  false, false, false, false},
    /* IKFK */           {false, false, false, false, false, false, false},
    /* SphereIcosa */    {true,  true,  false, false, false, false, false},
    /* SphereGeo */      {true,  true,  false, false, true,  false, false},
    /* Face */           {false, false, false, false, false, false, false},
    /* Nose */           {false, false, false, false, false, false, false},
    /* Diamond */        {true,  true,  false, false, false, false, false},
};
// clang-format on

}  // namespace

ControlHelperWidgets EnabledWidgets(int type, bool uniform) {
    if (type <= int(ShapeType::None) || type >= kShapeCount) return {};
    const ShapeReads& reads = kReads[type];
    const bool perAxis = reads.uniform && !uniform;
    return {reads.uniform, !perAxis,    perAxis,          reads.height && perAxis, reads.thickness,
            reads.corner,  reads.steps, reads.warpAmount, reads.warpAxis};
}

}  // namespace zorvanta
