#include "helpers/ControlParamDefs.h"

#include "extra/WeakRefOwnerAccessor.h"
#include "frame/FrameIds.h"
#include "helpers/HelperIds.h"
#include "helpers/ShapeCatalogue.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr float kHuge = 1e30f;

}  // namespace

std::vector<ParamDef> ControlParamDefs() {
    PBAccessor* const selectorAccessor = &WeakRefOwnerAccessor::Instance();
    // clang-format off
    return {
        {CH_TYPE, L"type", TYPE_INT, 0, IDS_HELPER_TYPE, {.i = int(ShapeType::Sphere)}, {{0.0f, float(kShapeCount - 1)}}},
        {CH_GIZMO, L"gizmo", TYPE_MATRIX3, 0, IDS_GIZMO, {}},
        {CH_UNIFORM, L"uniform", TYPE_BOOL, 0, IDS_UNIFORM, {.i = 1}},
        {CH_SIZE, L"size", TYPE_WORLD, P_ANIMATABLE, IDS_SIZE, {.f = 20.0f}, {{0.0f, kHuge}}},
        {CH_LENGTH, L"length", TYPE_WORLD, P_ANIMATABLE, IDS_LENGTH, {.f = 20.0f}, {{0.0f, kHuge}}},
        {CH_WIDTH, L"width", TYPE_WORLD, P_ANIMATABLE, IDS_WIDTH, {.f = 20.0f}, {{0.0f, kHuge}}},
        {CH_HEIGHT, L"height", TYPE_WORLD, P_ANIMATABLE, IDS_HEIGHT, {.f = 20.0f}, {{0.0f, kHuge}}},
        {CH_AXIS, L"axis", TYPE_INT, 0, IDS_AXIS, {.i = 2}, {{0.0f, 2.0f}}},
        {CH_THICKNESS, L"thickness", TYPE_PCNT_FRAC, P_ANIMATABLE, IDS_THICKNESS, {.f = 0.5f}, {{0.0f, 100.0f}}},
        {CH_CORNER, L"corner", TYPE_WORLD, P_ANIMATABLE, IDS_CORNER, {.f = 0.0f}, {{0.0f, kHuge}}},
        {CH_STEPS, L"steps", TYPE_INT, 0, IDS_STEPS, {.i = 6}, {{0.0f, 999.0f}}},
        {CH_WARP_AMOUNT, L"warp_amount", TYPE_PCNT_FRAC, P_ANIMATABLE, IDS_WARP_AMOUNT, {.f = 0.0f}, {{-100.0f, 100.0f}}},
        {CH_WARP_AXIS, L"warp_axis", TYPE_INT, 0, IDS_WARP_AXIS, {.i = 0}, {{0.0f, 2.0f}}},
        {CH_OFFSET_LINE, L"offset_line", TYPE_BOOL, 0, IDS_OFFSET_LINE, {.i = 0}},
        {CH_FACE_CAMERA, L"face_camera", TYPE_BOOL, 0, IDS_FACE_CAMERA, {.i = 0}},
        {CH_CONSTANT_SCREEN_SIZE, L"constant_screen_size", TYPE_BOOL, 0, IDS_CONSTANT_SCREEN_SIZE, {.i = 0}},
        {CH_DRAW_ON_TOP, L"draw_on_top", TYPE_BOOL, 0, IDS_DRAW_ON_TOP, {.i = 0}},
        {CH_SELECTOR_ACTIVE, L"selector_active", TYPE_BOOL, 0, IDS_SELECTOR_ACTIVE, {.i = 0}},
        {CH_SELECTOR_NODE, L"selector_node", TYPE_INODE, 0, IDS_SELECTOR_NODE, {}, std::nullopt, selectorAccessor},
        {CH_SELECTOR_IGNORE_BACKFACING, L"selector_ignore_backfacing", TYPE_BOOL, 0, IDS_SELECTOR_IGNORE_BACKFACING, {.i = 0}},
        {CH_SELECTOR_USE_WIRE_COLOR, L"selector_use_wire_color", TYPE_BOOL, 0, IDS_SELECTOR_USE_WIRE_COLOR, {.i = 1}},
        {CH_SELECTOR_COLOR, L"selector_color", TYPE_RGBA, 0, IDS_SELECTOR_COLOR, {.p = Point3(1.0f, 0.8f, 0.0f)}},
        {CH_SELECTOR_SEL_OPACITY, L"selector_sel_opacity", TYPE_PCNT_FRAC, 0, IDS_SELECTOR_SEL_OPACITY, {.f = 0.5f}, {{0.0f, 100.0f}}},
        {CH_SELECTOR_UNSEL_OPACITY, L"selector_unsel_opacity", TYPE_PCNT_FRAC, 0, IDS_USE_POSITION, {.f = 0.25f}, {{0.0f, 100.0f}}},
        {CH_SELECTOR_PUSH_VALUE, L"selector_push_value", TYPE_FLOAT, 0, IDS_SELECTOR_PUSH_VALUE, {.f = 0.1f}, {{0.0f, kHuge}}},
    };
    // clang-format on
}

}  // namespace zorvanta
