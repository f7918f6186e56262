#include "helpers/ShapeCatalogue.h"

#include "helpers/HelperIds.h"
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

}  // namespace

const wchar_t* ShapeEnumName(int i) {
    return InCatalogue(i) ? kShapeNames[i].enumName : nullptr;
}

const wchar_t* ShapeLabel(int i) {
    return InCatalogue(i) ? kShapeNames[i].label : nullptr;
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

}  // namespace zorvanta
