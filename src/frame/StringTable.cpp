#include "src/frame/StringTable.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "src/frame/FrameIds.h"

namespace zorvanta {

namespace {

struct StringEntry {
    int id;
    const wchar_t* text;
};

// Every label, class name and undo name of the library, sorted by id.
constexpr StringEntry kStrings[] = {
    {IDS_SELECT_OBJECT, L"Select Object"},
    {IDS_PARAMETER_CHANGE, L"Parameter Change"},
    {IDS_NONE, L"None"},
    {IDS_VERTICAL_OFFSET, L"Vertical Offset"},
    {IDS_RIG_SYSTEM_CHANGE, L"Rig System Change"},
    {IDS_HEAD, L"Head"},
    {IDS_HAND, L"Hand"},
    {IDS_CREATE_RIG, L"Create Rig"},
    {IDS_LIMB_ATTRIB_CLASS, L"LimbAttrib"},
    {IDS_CURVE_ATTRIB_CLASS, L"CurveAttrib"},
    {IDS_HEAD_ATTRIB_CLASS, L"HeadAttrib"},
    {IDS_FOOT_ATTRIB_CLASS, L"FootAttrib"},
    {IDS_LINK_ATTRIB_CLASS, L"LinkAttrib"},
    {IDS_MAIN, L"Main"},
    {IDS_PELVIS, L"Pelvis"},
    {IDS_CHEST, L"Chest"},
    {IDS_LOAD_ANIMATION, L"Load Animation"},
    {IDS_LOAD_POSE, L"Load Pose"},
    {IDS_ANIMATION_MANAGER_CHANGE, L"Animation Manager Change"},
    {IDS_ROOT_ATTRIB_CLASS, L"RootAttrib"},
    {IDS_ANIMATION_LAYERS_CHANGE, L"Animation Layers Change"},
    {IDS_ANIMATION_LAYERS_ACTIVE_FILTER, L"Animation Layers Active Filter"},
    {IDS_BASE_LAYER, L"Base Layer"},
    {IDS_ANIM_LAYER, L"Anim Layer"},
    {IDS_MULTIPLE_ANIM_LAYER_SETS, L"Multiple Anim Layer Sets"},
    {IDS_LOAD_RIG_TEMPLATE, L"Load Rig Template"},
    {IDS_RIG_TEMPLATE_FILES, L"Rig Template Files (*.rig)"},
    {IDS_LOAD_RIG_TEMPLATE_FILE, L"Load Rig Template File"},
    {IDS_ALL_FILES, L"All Files (*.*)"},
    {IDS_TRANSFERING_ANIMATION, L"Transfering Animation"},
    {IDS_HELPER_TYPE, L"Helper Type"},
    {IDS_GIZMO, L"Gizmo"},
    {IDS_UNIFORM, L"Uniform"},
    {IDS_SIZE, L"Size"},
    {IDS_LENGTH, L"Length"},
    {IDS_WIDTH, L"Width"},
    {IDS_HEIGHT, L"Height"},
    {IDS_AXIS, L"Axis"},
    {IDS_THICKNESS, L"Thickness"},
    {IDS_CORNER, L"Corner"},
    {IDS_STEPS, L"Steps"},
    {IDS_WARP_AMOUNT, L"Warp Amount"},
    {IDS_WARP_AXIS, L"Warp Axis"},
    {IDS_OFFSET_LINE, L"Offset Line"},
    {IDS_FACE_CAMERA, L"Face Camera"},
    {IDS_CONSTANT_SCREEN_SIZE, L"Constant Screen Size"},
    {IDS_DRAW_ON_TOP, L"Draw On Top"},
    {IDS_SELECTOR_ACTIVE, L"Selector Active"},
    {IDS_SELECTOR_NODE, L"Selector Node"},
    {IDS_SELECTOR_IGNORE_BACKFACING, L"Selector Ignore Backfacing"},
    {IDS_SELECTOR_USE_WIRE_COLOR, L"Selector Use Wire Color"},
    {IDS_SELECTOR_COLOR, L"Selector Color"},
    {IDS_SELECTOR_SEL_OPACITY, L"Selector Sel Opacity"},
    {IDS_USE_POSITION, L"Use Position"},
    {IDS_SELECTOR_PUSH_VALUE, L"Selector Push Value"},
    {IDS_PARAMETERS, L"Parameters"},
    {IDS_SELECTOR, L"Selector"},
    {IDS_SELECTOR_POLYGON, L"Selector Polygon"},
    {IDS_SELECTOR_FACE_SELECTION, L"Selector Face Selection"},
    {IDS_CONTROL_HELPER_CHANGE, L"Control Helper Change"},
    {IDS_RESET_GIZMO, L"Reset Gizmo"},
    {IDS_STATIC_FLOAT_CLASS, L"Static Float"},
    {IDS_STEP_FLOAT_CLASS, L"Step Float"},
    {IDS_MSG_CHECKER_CLASS, L"MsgChecker"},
    {IDS_STRETCH_CONSTRAINT_CLASS, L"Stretch Constraint"},
    {IDS_AIM_CONSTRAINT_CLASS, L"Aim Constraint"},
    {IDS_FLOAT_EXPOSE_TM_CLASS, L"Float Expose TM"},
    {IDS_FLOAT_CONNECTION_CLASS, L"Float Connection"},
    {IDS_SCALE_CONSTRAINT_CLASS, L"Scale Constraint"},
    {IDS_TRANSFORM_CONSTRAINT_CLASS, L"Transform Constraint"},
    {IDS_STATIC_POSITION_CLASS, L"Static Position"},
    {IDS_STATIC_ROTATION_CLASS, L"Static Rotation"},
    {IDS_STATIC_SCALE_CLASS, L"Static Scale"},
    {IDS_STATIC_TRANSFORM_CLASS, L"Static Transform"},
    {IDS_CURVE_IK_CONTROL_CLASS, L"CurveIK Control"},
    {IDS_CURVE_IK_CHAIN_CLASS, L"CurveIK Chain"},
    {IDS_CONTROL_HELPER_CLASS, L"Control Helper"},
    {IDS_UI_PANEL_CLASS, L"UI Panel"},
    {IDS_UI_GROUP_CLASS, L"UIGroup"},
    {IDS_UI_IMAGE_CLASS, L"UIImage"},
    {IDS_UI_PICKER_CLASS, L"UIPicker"},
    {IDS_UI_VISIBILITY_CLASS, L"UIVisibility"},
    {IDS_UI_TOGGLE_CLASS, L"UIToggle"},
    {IDS_UI_SLIDER_CLASS, L"UISlider"},
    {IDS_UI2_D_SLIDER_CLASS, L"UI2DSlider"},
    {IDS_UI_SPINNER_CLASS, L"UISpinner"},
    {IDS_UI2_D_SPINNER_CLASS, L"UI2DSpinner"},
    {IDS_UI_PANEL_HOLDER_CLASS, L"UIPanel Holder"},
    {IDS_RIG_CLASS, L"Rig"},
    {IDS_RIG_SYSTEM_CLASS, L"Rig"},
    {IDS_IKFK_CHAIN_CLASS, L"IKFK Chain"},
    {IDS_IKFK_CONTROL_CLASS, L"IKFK Control"},
    {IDS_IKFK_LINK_CLASS, L"IKFK Link"},
    {IDS_PARENT_CONSTRAINT_CLASS, L"Parent Constraint"},
    {IDS_ROTATION_SPACE_CLASS, L"Rotation Space"},
    {IDS_POSE_KIT_CLASS, L"Pose Kit"},
    {IDS_POSE_KIT_HOLDER_CLASS, L"Pose Kit Holder"},
    {IDS_FLOAT_OPERATION_CLASS, L"Float Operation"},
    {IDS_FLOAT_WAVE_CLASS, L"Float Wave"},
    {IDS_RIG_CONTROL_CLASS, L"Rig Transform"},
    {IDS_POSITION_CONNECTION_CLASS, L"Position Connection"},
    {IDS_ROTATION_CONNECTION_CLASS, L"Rotation Connection"},
    {IDS_SCALE_CONNECTION_CLASS, L"Scale Connection"},
    {IDS_MIRROR_MORPH_CLASS, L"Mirror Morph"},
    {IDS_CORRECTIVE_MORPH_CLASS, L"CorrectiveMorph"},
    {IDS_DYNAMICS_CLASS, L"Dynamics"},
    {IDS_ANIMATION_MANAGER_MOD_CLASS, L"Animation Manager"},
    {IDS_ROOT_CONSTRAINT_CLASS, L"Root Constraint"},
    {IDS_TWIST_POSES_FLOAT_CLASS, L"Twist Poses Float"},
    {IDS_TWIST_POSES_ROTATION_CLASS, L"Twist Poses Rotation"},
    {IDS_UI_LABEL_CLASS, L"UI Label"},
    {IDS_DUMMY_FLOAT_CLASS, L"Dummy Float"},
    {IDS_DUMMY_ROTATION_CLASS, L"Dummy Rotation"},
    {IDS_ANIMATION_LAYERS_CLASS, L"Animation Layers"},
    {IDS_FLOAT_LAYERS_CLASS, L"Float Layers"},
    {IDS_POSITION_LAYERS_CLASS, L"Position Layers"},
    {IDS_ROTATION_LAYERS_CLASS, L"Rotation Layers"},
    {IDS_SCALE_LAYERS_CLASS, L"Scale Layers"},
    {IDS_CONTROL_SHAPE_CLASS, L"Control Shape"},
    {IDS_IKFK_DISPLAY_MOD_CLASS, L"IKFK Display"},
    {IDS_ANIM_LAYERS_LOCAL_WEIGHTS_CLASS, L"Animation Layers Local Weights"},
    {IDS_ROTATION_XYZ_CLASS, L"Rotation XYZ"},
    {IDS_CHANGE_EULER_ORDER, L"Change Euler Order"},
    {IDS_TARGET, L"Target"},
    {IDS_WEIGHT, L"Weight"},
    {IDS_KEEP_INITIAL_OFFSET, L"Keep Initial Offset"},
    {IDS_INITIAL_OFFSET, L"Initial Offset"},
    {IDS_OFFSET_TM, L"Offset TM"},
    {IDS_INDEPENDENT_OFFSET, L"Independent Offset"},
    {IDS_STRAIGHT_SCALE, L"Straight Scale"},
    {IDS_CONNECT_MIRROR_OFFSET, L"Connect Mirror Offset"},
    {IDS_FIGURE_MODE_ON, L"FIGURE MODE ON"},
    {IDS_TRANSFORM, L"Transform"},
    {IDS_OFFSET_TRANSFORM, L"Offset Transform"},
    {IDS_PARENT_ROT, L"Parent Rot"},
    {IDS_EULER_ROT, L"Euler Rot"},
};

constexpr bool SortedById() {
    for (size_t i = 1; i < std::size(kStrings); ++i)
        if (kStrings[i - 1].id >= kStrings[i].id) return false;
    return true;
}
static_assert(SortedById(), "the string table is kept sorted by id, each id once");

constexpr size_t kBufferLength = 512;

}  // namespace

const wchar_t* GetString(int id) {
    static wchar_t buffer[kBufferLength];
    const auto* end = std::end(kStrings);
    const auto* entry = std::lower_bound(std::begin(kStrings), end, id,
                                         [](const StringEntry& e, int key) { return e.id < key; });
    if (entry == end || entry->id != id) return nullptr;
    std::wcsncpy(buffer, entry->text, kBufferLength - 1);
    buffer[kBufferLength - 1] = L'\0';
    return buffer;
}

int NumStrings() {
    return int(std::size(kStrings));
}

}  // namespace zorvanta
