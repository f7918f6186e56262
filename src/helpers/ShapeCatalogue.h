#pragma once

#include "host/classes/BezierShape.h"
#include "host/core/TimeValue.h"
#include "host/math/Box3.h"
#include "host/object/WireOutline.h"

namespace host {
class IParamBlock2;
}

namespace zorvanta {

// The outlines a control can take, by the index scene files and rig templates store.
// The order is fixed: never insert, reorder or remove.
enum class ShapeType : int {
    None,
    Cross,
    CrossDiagonal,
    CrossAsterisk,
    AxisTripod,
    Circle,
    CircleHalf,
    CirclePointy,
    Donut,
    Sphere,
    SphereHalf,
    Rectangle,
    Box,
    Triangle,
    Cone,
    Cylinder,
    Arrow,
    ArrowDouble,
    ArrowCircle,
    ArrowCylinder,
    ArrowCross,
    ArrowMixed,
    CrossFlat,
    Drop,
    Star,
    StarSmooth,
    Peanut,
    Gear,
    Character,
    Eye,
    Lips,
    Hand,
    Foot,
    Shoe,
    FourArrows,
    FourPyramids,
    FourTriangles,
    IKFK,
    SphereIcosa,
    SphereGeo,
    Face,
    Nose,
    Diamond,
};
inline constexpr int kShapeCount = 43;

// The published name of shape index i (an enum name such as "CrossDiagonal") and the
// label lists show ("Cross Diagonal"); null past the catalogue.
const wchar_t* ShapeEnumName(int i);
const wchar_t* ShapeLabel(int i);

// Which of the block's sizing and warp parameters shape index i reads: whether it
// offers the uniform switch (sized by length and width when it is off, by size alone
// otherwise), whether it warps, and whether the warp axis steers the warp. All false
// past the catalogue.
struct ShapeSizing {
    bool byUniform = false;
    bool warps = false;
    bool warpAxis = false;
};
ShapeSizing ShapeSizingOf(int i);

// The numbers every outline reads, from the control helper's block at one time.
// Percents are fractions; lengths are world units.
struct ShapeInputs {
    int type = int(ShapeType::Sphere);
    bool uniform = true;
    float size = 20.0f;
    float length = 20.0f;
    float width = 20.0f;
    float height = 20.0f;
    float thickness = 0.5f;
    float corner = 0.0f;
    int steps = 6;
    float warpAmount = 0.0f;
    int warpAxis = 0;
    bool offsetLine = false;
    bool faceCamera = false;
    // The node's position in the outline's own space: where the offset line ends.
    host::Point3 nodePosition;
};

// The inputs as the block holds them at t; the defaults for a null block.
ShapeInputs ReadShapeInputs(host::IParamBlock2* pb, host::TimeValue t);

// The drawing form: the outline of in.type as lines around the origin, appended to
// out, with the offset line when it is on. False, adding nothing, for an index outside
// the catalogue.
bool ShapeOutline(const ShapeInputs& in, host::WireOutline& out);

// The building form: the same outline as Bezier splines appended to shape. The IKFK
// glyph has no building form; it, None without an offset line and an index outside
// the catalogue add no spline and answer false.
bool BuildShapeSplines(const ShapeInputs& in, host::BezierShape& shape);

// The box the outline lies in: its half extents, widened as the warp widens them.
host::Box3 ShapeLocalBox(const ShapeInputs& in);

}  // namespace zorvanta
