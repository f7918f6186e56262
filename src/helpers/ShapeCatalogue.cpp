#include "helpers/ShapeCatalogue.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "helpers/BendWarp.h"
#include "helpers/HelperIds.h"
#include "helpers/OutlineSink.h"
#include "helpers/ShapeMembers.h"
#include "helpers/SplineSink.h"
#include "host/object/IParamBlock2.h"

namespace zorvanta {

using namespace host;

namespace {

struct ShapeName {
    const wchar_t* enumName;
    const wchar_t* label;
};

// In index order, as ShapeType has them.
constexpr ShapeName kShapeNames[kShapeCount] = {
    {L"None", L"None"},
    {L"Cross", L"Cross"},
    {L"CrossDiagonal", L"Cross Diagonal"},
    {L"CrossAsterisk", L"Cross Asterisk"},
    {L"AxisTripod", L"Axis Tripod"},
    {L"Circle", L"Circle"},
    {L"CircleHalf", L"Circle Half"},
    {L"CirclePointy", L"Circle Pointy"},
    {L"Donut", L"Donut"},
    {L"Sphere", L"Sphere"},
    {L"SphereHalf", L"Sphere Hemi"},
    {L"Rectangle", L"Rectangle"},
    {L"Box", L"Box"},
    {L"Triangle", L"Triangle"},
    {L"Cone", L"Cone"},
    {L"Cylinder", L"Cylinder"},
    {L"Arrow", L"Arrow"},
    {L"ArrowDouble", L"Arrow Double"},
    {L"ArrowCircle", L"Arrow Circle"},
    {L"ArrowCylinder", L"Arrow Cylinder"},
    {L"ArrowCross", L"Arrow Cross"},
    {L"ArrowMixed", L"Arrow Mixed"},
    {L"CrossFlat", L"Cross Flat"},
    {L"Drop", L"Drop"},
    {L"Star", L"Star"},
    {L"StarSmooth", L"Star Smooth"},
    {L"Peanut", L"Peanut"},
    {L"Gear", L"Gear"},
    {L"Character", L"Character"},
    {L"Eye", L"Eye"},
    {L"Lips", L"Lips"},
    {L"Hand", L"Hand"},
    {L"Foot", L"Foot"},
    {L"Shoe", L"Shoe"},
    {L"FourArrows", L"Four Arrows"},
    {L"FourPyramids", L"Four Pyramids"},
    {L"FourTriangles", L"Four Triangles"},
    {L"IKFK", L"IKFK"},
    {L"SphereIcosa", L"Sphere Icosa"},
    {L"SphereGeo", L"Sphere Geo"},
    {L"Face", L"Face"},
    {L"Nose", L"Nose"},
    {L"Diamond", L"Diamond"},
};

bool InCatalogue(int i) {
    return i >= 0 && i < kShapeCount;
}

// Which half extents a member takes: size alone, or by the uniform switch.
enum class Extents { ByUniform, SizeOnly };
// The space a member lays its outline out in: unit half extents (scaled to hx, hy, hz;
// a flat member's depth to hm), world units, or the glyphs' unit square (scaled by size).
enum class Space { Unit, UnitFlat, World, Glyph };
enum class Warp { None, Saddle, Box, CylinderBox, Bend };

struct MemberRow {
    shapes::Member draw;  // null for None
    Extents extents;
    Space space;
    Warp warp = Warp::None;
    bool builds = true;  // false: no building form
    // Widens the half extents where the outline reaches past them; null for none.
    void (*widen)(const ShapeContext& ctx, Point3& half) = nullptr;
};

// The tripod's barbs spread across the other axes by half the thickness of their own.
void WidenForBarbs(const ShapeContext& ctx, Point3& half) {
    const float barb = std::max({ctx.hx, ctx.hy, ctx.hz}) * ctx.t / 2.0f;
    for (int i = 0; i < 3; ++i) half[i] = std::max(half[i], barb);
}

constexpr Extents U = Extents::ByUniform;
constexpr Extents S = Extents::SizeOnly;

using namespace shapes;

// In index order, as ShapeType has them.
const MemberRow kMembers[kShapeCount] = {
    {nullptr, S, Space::Unit},
    {Cross, U, Space::Unit},
    {CrossDiagonal, U, Space::Unit},
    {CrossAsterisk, U, Space::Unit},
    {AxisTripod, U, Space::World, Warp::None, true, WidenForBarbs},
    {Circle, U, Space::UnitFlat, Warp::Saddle},
    {CircleHalf, U, Space::UnitFlat, Warp::Saddle},
    {CirclePointy, S, Space::Unit},
    {Donut, U, Space::UnitFlat, Warp::Saddle},
    {Sphere, U, Space::Unit},
    {SphereHalf, U, Space::Unit},
    {Rectangle, U, Space::World, Warp::Bend},
    {Box, U, Space::Unit, Warp::Box},
    {Triangle, U, Space::World},
    {Cone, U, Space::Unit},
    {Cylinder, U, Space::Unit, Warp::CylinderBox},
    {Arrow, S, Space::Unit, Warp::Box},
    {ArrowDouble, S, Space::Unit, Warp::Box},
    {ArrowCircle, S, Space::Unit},
    {ArrowCylinder, S, Space::Unit},
    {ArrowCross, S, Space::Unit, Warp::Saddle},
    {ArrowMixed, S, Space::Unit, Warp::Saddle},
    {CrossFlat, S, Space::Unit, Warp::Saddle},
    {Drop, S, Space::Unit},
    {Star, S, Space::Unit, Warp::Saddle},
    {StarSmooth, S, Space::Unit, Warp::Saddle},
    {Peanut, S, Space::Unit, Warp::Saddle},
    {Gear, S, Space::Unit, Warp::Saddle},
    {GlyphMember<kCharacterGlyph>, S, Space::Glyph},
    {GlyphMember<kEyeGlyph>, S, Space::Glyph},
    {GlyphMember<kLipsGlyph>, S, Space::Glyph},
    {GlyphMember<kHandGlyph>, S, Space::Glyph},
    {GlyphMember<kFootGlyph>, S, Space::Glyph},
    {GlyphMember<kShoeGlyph>, S, Space::Glyph},
    {FourArrows, S, Space::Unit},
    {FourPyramids, S, Space::Unit},
    {FourTriangles, S, Space::Unit},
    {GlyphMember<kIKFKGlyph>, S, Space::Glyph, Warp::None, false},
    {SphereIcosa, U, Space::Unit},
    {SphereGeo, U, Space::Unit},
    {GlyphMember<kFaceGlyph>, S, Space::Glyph},
    {GlyphMember<kNoseGlyph>, S, Space::Glyph},
    {Diamond, U, Space::Unit},
};

ShapeContext MakeContext(const ShapeInputs& in, const MemberRow& row) {
    ShapeContext ctx{in};
    const bool uniform = in.uniform || row.extents == Extents::SizeOnly;
    const float h = in.size / 2.0f;
    ctx.hx = uniform ? h : in.width / 2.0f;
    ctx.hy = uniform ? h : in.length / 2.0f;
    ctx.hz = uniform ? h : in.height / 2.0f;
    ctx.hm = uniform ? h : (ctx.hx + ctx.hy) / 2.0f;
    ctx.t = std::clamp(in.thickness, 0.0f, 1.0f);
    ctx.c = in.corner;
    ctx.w = std::clamp(in.warpAmount, -1.0f, 1.0f);
    ctx.steps = std::max(0, in.steps);
    return ctx;
}

// The bend of a rectangle spans its length, or its width when it bends along X.
BendWarp MakeBend(const ShapeContext& ctx) {
    const int axis = std::clamp(ctx.in.warpAxis, 0, 2);
    return BendWarp(ctx.w, 2.0f * (axis == 1 ? ctx.hx : ctx.hy), axis);
}

PointMap MakeMap(const MemberRow& row, const ShapeContext& ctx, const BendWarp* bend) {
    PointMap map;
    switch (row.space) {
        case Space::Unit:
            map.scale = Point3(ctx.hx, ctx.hy, ctx.hz);
            break;
        case Space::UnitFlat:
            map.scale = Point3(ctx.hx, ctx.hy, ctx.hm);
            break;
        case Space::World:
            break;
        case Space::Glyph:
            map.scale = Point3(1, 1, 1) * ctx.in.size;
            break;
    }
    switch (row.warp) {
        case Warp::None:
            break;
        case Warp::Saddle:
            map.saddle = ctx.w;
            break;
        case Warp::Box:
            map.boxAxis = std::clamp(ctx.in.warpAxis, 0, 2);
            map.boxAmount = ctx.w;
            break;
        case Warp::CylinderBox:
            // A cylinder tapers along its own axis, and only past a small dead zone.
            if (std::fabs(ctx.w) > 0.01f) {
                map.boxAxis = 2;
                map.boxAmount = ctx.w;
            }
            break;
        case Warp::Bend:
            map.bend = bend && bend->Active() ? bend : nullptr;
            break;
    }
    return map;
}

// Lays out member `row` into the sink, then the offset line: from the node to the
// member's nearest candidate point, or to the origin when the member names none or the
// outline faces the camera.
void RunMember(const MemberRow& row, const ShapeInputs& in, ShapeSink& sink) {
    const ShapeContext ctx = MakeContext(in, row);
    std::optional<BendWarp> bend;
    if (row.warp == Warp::Bend) bend.emplace(MakeBend(ctx));
    sink.SetMap(MakeMap(row, ctx, bend ? &*bend : nullptr));
    if (row.draw) row.draw(ctx, sink);
    if (!in.offsetLine) return;
    const Point3 end =
        !in.faceCamera && sink.HasCandidate() ? sink.NearestCandidate() : Point3::Origin;
    sink.SetMap(PointMap{});
    sink.Polyline({in.nodePosition, end}, false);
}

}  // namespace

const wchar_t* ShapeEnumName(int i) {
    return InCatalogue(i) ? kShapeNames[i].enumName : nullptr;
}

const wchar_t* ShapeLabel(int i) {
    return InCatalogue(i) ? kShapeNames[i].label : nullptr;
}

ShapeSizing ShapeSizingOf(int i) {
    if (!InCatalogue(i)) return {};
    const MemberRow& row = kMembers[i];
    return {row.extents == Extents::ByUniform, row.warp != Warp::None,
            row.warp == Warp::Box || row.warp == Warp::Bend};
}

ShapeInputs ReadShapeInputs(IParamBlock2* pb, TimeValue t) {
    ShapeInputs in;
    if (!pb) return in;
    in.type = pb->GetInt(CH_TYPE, t);
    in.uniform = pb->GetInt(CH_UNIFORM, t) != 0;
    in.size = pb->GetFloat(CH_SIZE, t);
    in.length = pb->GetFloat(CH_LENGTH, t);
    in.width = pb->GetFloat(CH_WIDTH, t);
    in.height = pb->GetFloat(CH_HEIGHT, t);
    in.thickness = pb->GetFloat(CH_THICKNESS, t);
    in.corner = pb->GetFloat(CH_CORNER, t);
    in.steps = pb->GetInt(CH_STEPS, t);
    in.warpAmount = pb->GetFloat(CH_WARP_AMOUNT, t);
    in.warpAxis = pb->GetInt(CH_WARP_AXIS, t);
    in.offsetLine = pb->GetInt(CH_OFFSET_LINE, t) != 0;
    in.faceCamera = pb->GetInt(CH_FACE_CAMERA, t) != 0;
    return in;
}

bool ShapeOutline(const ShapeInputs& in, WireOutline& out) {
    if (!InCatalogue(in.type)) return false;
    const MemberRow& row = kMembers[in.type];
    OutlineSink sink(out, std::max(0, in.steps), in.nodePosition);
    RunMember(row, in, sink);
    return true;
}

bool BuildShapeSplines(const ShapeInputs& in, BezierShape& shape) {
    if (!InCatalogue(in.type) || !kMembers[in.type].builds) return false;
    const int before = shape.SplineCount();
    SplineSink sink(shape, in.nodePosition);
    RunMember(kMembers[in.type], in, sink);
    return shape.SplineCount() > before;
}

Box3 ShapeLocalBox(const ShapeInputs& in) {
    if (!InCatalogue(in.type) || !kMembers[in.type].draw) return Box3();
    const MemberRow& row = kMembers[in.type];
    const ShapeContext ctx = MakeContext(in, row);
    Point3 half(ctx.hx, ctx.hy, ctx.hz);
    if (row.widen) row.widen(ctx, half);
    // The saddle lifts and lowers a flat outline by up to |w| of its depth scale.
    if (row.warp == Warp::Saddle) {
        const float depth = row.space == Space::UnitFlat ? ctx.hm : ctx.hz;
        half.z = std::max(half.z, std::fabs(ctx.w) * depth);
    }
    if (row.warp == Warp::Bend) return MakeBend(ctx).Bound(half);
    return Box3(-half, half);
}

}  // namespace zorvanta
