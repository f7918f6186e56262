#include "frame/Catalogue.h"

#include <dlfcn.h>

#include <iterator>
#include <vector>

#include "controllers/DummyFloat.h"
#include "controllers/DummyRotation.h"
#include "controllers/RigControl.h"
#include "controllers/RotationSpace.h"
#include "controllers/RotationXYZ.h"
#include "controllers/StaticFloat.h"
#include "controllers/StaticPosition.h"
#include "controllers/StaticRotation.h"
#include "controllers/StaticScale.h"
#include "controllers/StaticTransform.h"
#include "controllers/StepFloat.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "helpers/ControlHelper.h"
#include "helpers/ControlShape.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

template <class T>
Animatable* Make(bool loading) {
    return new T(loading);
}

// Every class of the library, in index order. The order is kept so that the class
// directories of scene files stay comparable; the identities are those scene files
// store. Rig and RigSystem are two identities of one class. One row a line, as a table.
// clang-format off
const CatalogueRow kCatalogue[] = {
    {L"StaticFloat", true, CTRL_FLOAT_CLASS_ID, STATIC_FLOAT_CLASS_ID, IDS_STATIC_FLOAT_CLASS, L"Animation", L"StaticFloat", &Make<StaticFloat>},
    {L"StepFloat", true, CTRL_FLOAT_CLASS_ID, STEP_FLOAT_CLASS_ID, IDS_STEP_FLOAT_CLASS, L"Animation", L"StepFloat", &Make<StepFloat>},
    {L"MsgChecker", true, REF_TARGET_CLASS_ID, MSG_CHECKER_CLASS_ID, IDS_MSG_CHECKER_CLASS, L"Animation", L"MsgChecker", nullptr},
    {L"StretchConstraint", true, CTRL_MATRIX3_CLASS_ID, STRETCH_CONSTRAINT_CLASS_ID, IDS_STRETCH_CONSTRAINT_CLASS, L"Animation", L"StretchConstraint", nullptr},
    {L"AimConstraint", true, CTRL_ROTATION_CLASS_ID, AIM_CONSTRAINT_CLASS_ID, IDS_AIM_CONSTRAINT_CLASS, L"Animation", L"AimConstraint", nullptr},
    {L"FloatExposeTM", true, CTRL_FLOAT_CLASS_ID, FLOAT_EXPOSE_TM_CLASS_ID, IDS_FLOAT_EXPOSE_TM_CLASS, L"Animation", L"FloatExposeTM", nullptr},
    {L"FloatConnection", true, CTRL_FLOAT_CLASS_ID, FLOAT_CONNECTION_CLASS_ID, IDS_FLOAT_CONNECTION_CLASS, L"Animation", L"FloatConnection", nullptr},
    {L"ScaleConstraint", true, CTRL_SCALE_CLASS_ID, SCALE_CONSTRAINT_CLASS_ID, IDS_SCALE_CONSTRAINT_CLASS, L"Animation", L"ScaleConstraint", nullptr},
    {L"TransformConstraint", true, CTRL_MATRIX3_CLASS_ID, TRANSFORM_CONSTRAINT_CLASS_ID, IDS_TRANSFORM_CONSTRAINT_CLASS, L"Animation", L"TransformConstraint", nullptr},
    {L"StaticPosition", true, CTRL_POSITION_CLASS_ID, STATIC_POSITION_CLASS_ID, IDS_STATIC_POSITION_CLASS, L"Animation", L"StaticPosition", &Make<StaticPosition>},
    {L"StaticRotation", true, CTRL_ROTATION_CLASS_ID, STATIC_ROTATION_CLASS_ID, IDS_STATIC_ROTATION_CLASS, L"Animation", L"StaticRotation", &Make<StaticRotation>},
    {L"StaticScale", true, CTRL_SCALE_CLASS_ID, STATIC_SCALE_CLASS_ID, IDS_STATIC_SCALE_CLASS, L"Animation", L"StaticScale", &Make<StaticScale>},
    {L"StaticTransform", true, CTRL_MATRIX3_CLASS_ID, STATIC_TRANSFORM_CLASS_ID, IDS_STATIC_TRANSFORM_CLASS, L"Animation", L"StaticTransform", &Make<StaticTransform>},
    {L"CurveIKControl", false, CTRL_MATRIX3_CLASS_ID, CURVE_IK_CONTROL_CLASS_ID, IDS_CURVE_IK_CONTROL_CLASS, L"Animation", L"CurveIKControl", nullptr},
    {L"CurveIKChain", false, CTRL_MATRIX3_CLASS_ID, CURVE_IK_CHAIN_CLASS_ID, IDS_CURVE_IK_CHAIN_CLASS, L"Animation", L"CurveIKChain", nullptr},
    {L"ControlHelper", true, HELPER_CLASS_ID, CONTROL_HELPER_CLASS_ID, IDS_CONTROL_HELPER_CLASS, L"Helper", L"ControlHelper", &Make<ControlHelper>, &ControlHelper::DescribeBlocks},
    {L"UIPanel", true, HELPER_CLASS_ID, UI_PANEL_CLASS_ID, IDS_UI_PANEL_CLASS, L"", L"UIPanel", nullptr},
    {L"UIGroup", true, REF_TARGET_CLASS_ID, UI_GROUP_CLASS_ID, IDS_UI_GROUP_CLASS, L"Animation", L"UIGroup", nullptr},
    {L"UIImage", true, REF_TARGET_CLASS_ID, UI_IMAGE_CLASS_ID, IDS_UI_IMAGE_CLASS, L"Animation", L"UIImage", nullptr},
    {L"UIPicker", true, REF_TARGET_CLASS_ID, UI_PICKER_CLASS_ID, IDS_UI_PICKER_CLASS, L"Animation", L"UIPicker", nullptr},
    {L"UIVisibility", true, REF_TARGET_CLASS_ID, UI_VISIBILITY_CLASS_ID, IDS_UI_VISIBILITY_CLASS, L"Animation", L"UIVisibility", nullptr},
    {L"UIToggle", true, REF_TARGET_CLASS_ID, UI_TOGGLE_CLASS_ID, IDS_UI_TOGGLE_CLASS, L"Animation", L"UIToggle", nullptr},
    {L"UIAction", true, REF_TARGET_CLASS_ID, UI_ACTION_CLASS_ID, IDS_VERTICAL_OFFSET, L"Animation", L"UIAction", nullptr},
    {L"UISlider", true, REF_TARGET_CLASS_ID, UI_SLIDER_CLASS_ID, IDS_UI_SLIDER_CLASS, L"Animation", L"UISlider", nullptr},
    {L"UI2DSlider", true, REF_TARGET_CLASS_ID, UI2_D_SLIDER_CLASS_ID, IDS_UI2_D_SLIDER_CLASS, L"Animation", L"UI2DSlider", nullptr},
    {L"UISpinner", true, REF_TARGET_CLASS_ID, UI_SPINNER_CLASS_ID, IDS_UI_SPINNER_CLASS, L"Animation", L"UISpinner", nullptr},
    {L"UI2DSpinner", true, REF_TARGET_CLASS_ID, UI2_D_SPINNER_CLASS_ID, IDS_UI2_D_SPINNER_CLASS, L"Animation", L"UI2DSpinner", nullptr},
    {L"UIPanelHolder", false, CTRL_FLOAT_CLASS_ID, UI_PANEL_HOLDER_CLASS_ID, IDS_UI_PANEL_HOLDER_CLASS, L"Animation", L"UIPanelHolder", nullptr},
    {L"RigSystem", false, HELPER_CLASS_ID, RIG_CLASS_ID, IDS_RIG_CLASS, L"", L"Rig", &Make<RigSystem>, &RigSystem::DescribeBlocks},
    {L"RigSystem", true, SYSTEM_CLASS_ID, RIG_SYSTEM_CLASS_ID, IDS_RIG_SYSTEM_CLASS, L"", L"Rig", &Make<RigSystem>},
    {L"IKFKChain", false, CTRL_MATRIX3_CLASS_ID, IKFK_CHAIN_CLASS_ID, IDS_IKFK_CHAIN_CLASS, L"Animation", L"IKFKChain", nullptr},
    {L"IKFKControl", false, CTRL_MATRIX3_CLASS_ID, IKFK_CONTROL_CLASS_ID, IDS_IKFK_CONTROL_CLASS, L"Animation", L"IKFKControl", nullptr},
    {L"IKFKLink", false, CTRL_FLOAT_CLASS_ID, IKFK_LINK_CLASS_ID, IDS_IKFK_LINK_CLASS, L"Animation", L"IKFKLink", nullptr},
    {L"ParentConstraint", true, CTRL_MATRIX3_CLASS_ID, PARENT_CONSTRAINT_CLASS_ID, IDS_PARENT_CONSTRAINT_CLASS, L"Animation", L"ParentConstraint", nullptr},
    {L"RotationSpace", true, CTRL_MATRIX3_CLASS_ID, ROTATION_SPACE_CLASS_ID, IDS_ROTATION_SPACE_CLASS, L"Animation", L"RotationSpace", &Make<RotationSpace>, &RotationSpace::DescribeBlocks},
    {L"PoseKit", true, HELPER_CLASS_ID, POSE_KIT_CLASS_ID, IDS_POSE_KIT_CLASS, L"", L"PoseKit", nullptr},
    {L"PoseKitHolder", false, CTRL_FLOAT_CLASS_ID, POSE_KIT_HOLDER_CLASS_ID, IDS_POSE_KIT_HOLDER_CLASS, L"Animation", L"PoseKitHolder", nullptr},
    {L"LimbAttrib", true, CUST_ATTRIB_CLASS_ID, LIMB_ATTRIB_CLASS_ID, IDS_LIMB_ATTRIB_CLASS, L"", L"LimbAttrib", nullptr},
    {L"CurveAttrib", true, CUST_ATTRIB_CLASS_ID, CURVE_ATTRIB_CLASS_ID, IDS_CURVE_ATTRIB_CLASS, L"", L"CurveAttrib", nullptr},
    {L"HeadAttrib", true, CUST_ATTRIB_CLASS_ID, HEAD_ATTRIB_CLASS_ID, IDS_HEAD_ATTRIB_CLASS, L"", L"HeadAttrib", nullptr},
    {L"FootAttrib", true, CUST_ATTRIB_CLASS_ID, FOOT_ATTRIB_CLASS_ID, IDS_FOOT_ATTRIB_CLASS, L"", L"FootAttrib", nullptr},
    {L"LinkAttrib", true, CUST_ATTRIB_CLASS_ID, LINK_ATTRIB_CLASS_ID, IDS_LINK_ATTRIB_CLASS, L"", L"LinkAttrib", nullptr},
    {L"FloatOperation", true, CTRL_FLOAT_CLASS_ID, FLOAT_OPERATION_CLASS_ID, IDS_FLOAT_OPERATION_CLASS, L"Animation", L"FloatOperation", nullptr},
    {L"FloatWave", true, CTRL_FLOAT_CLASS_ID, FLOAT_WAVE_CLASS_ID, IDS_FLOAT_WAVE_CLASS, L"Animation", L"FloatWave", nullptr},
    {L"RigControl", true, CTRL_MATRIX3_CLASS_ID, RIG_CONTROL_CLASS_ID, IDS_RIG_CONTROL_CLASS, L"Animation", L"RigTransform", &Make<RigControl>, &RigControl::DescribeBlocks},
    {L"PositionConnection", true, CTRL_POSITION_CLASS_ID, POSITION_CONNECTION_CLASS_ID, IDS_POSITION_CONNECTION_CLASS, L"Animation", L"PositionConnection", nullptr},
    {L"RotationConnection", true, CTRL_ROTATION_CLASS_ID, ROTATION_CONNECTION_CLASS_ID, IDS_ROTATION_CONNECTION_CLASS, L"Animation", L"RotationConnection", nullptr},
    {L"ScaleConnection", true, CTRL_SCALE_CLASS_ID, SCALE_CONNECTION_CLASS_ID, IDS_SCALE_CONNECTION_CLASS, L"Animation", L"ScaleConnection", nullptr},
    {L"MirrorMorph", true, OSM_CLASS_ID, MIRROR_MORPH_CLASS_ID, IDS_MIRROR_MORPH_CLASS, L"", L"MirrorMorph", nullptr},
    {L"CorrectiveMorph", true, OSM_CLASS_ID, CORRECTIVE_MORPH_CLASS_ID, IDS_CORRECTIVE_MORPH_CLASS, L"", L"CorrectiveMorph", nullptr},
    {L"Dynamics", false, HELPER_CLASS_ID, DYNAMICS_CLASS_ID, IDS_DYNAMICS_CLASS, L"", L"Dynamics", nullptr},
    {L"AnimationManagerMod", true, OSM_CLASS_ID, ANIMATION_MANAGER_MOD_CLASS_ID, IDS_ANIMATION_MANAGER_MOD_CLASS, L"", L"AnimationManagerMod", nullptr},
    {L"RootAttrib", true, CUST_ATTRIB_CLASS_ID, ROOT_ATTRIB_CLASS_ID, IDS_ROOT_ATTRIB_CLASS, L"", L"RootAttrib", nullptr},
    {L"RootConstraint", true, CTRL_MATRIX3_CLASS_ID, ROOT_CONSTRAINT_CLASS_ID, IDS_ROOT_CONSTRAINT_CLASS, L"Animation", L"RootConstraint", nullptr},
    {L"TwistPosesFloat", true, CTRL_FLOAT_CLASS_ID, TWIST_POSES_FLOAT_CLASS_ID, IDS_TWIST_POSES_FLOAT_CLASS, L"Animation", L"TwistPosesFloat", nullptr},
    {L"TwistPosesRotation", true, CTRL_ROTATION_CLASS_ID, TWIST_POSES_ROTATION_CLASS_ID, IDS_TWIST_POSES_ROTATION_CLASS, L"Animation", L"TwistPosesRotation", nullptr},
    {L"UILabel", true, REF_TARGET_CLASS_ID, UI_LABEL_CLASS_ID, IDS_UI_LABEL_CLASS, L"Animation", L"UILabel", nullptr},
    {L"DummyFloat", false, CTRL_FLOAT_CLASS_ID, DUMMY_FLOAT_CLASS_ID, IDS_DUMMY_FLOAT_CLASS, L"Animation", L"DummyFloat", &Make<DummyFloat>},
    {L"DummyRotation", false, CTRL_ROTATION_CLASS_ID, DUMMY_ROTATION_CLASS_ID, IDS_DUMMY_ROTATION_CLASS, L"Animation", L"DummyRotation", &Make<DummyRotation>},
    {L"AnimationLayers", false, REF_TARGET_CLASS_ID, ANIMATION_LAYERS_CLASS_ID, IDS_ANIMATION_LAYERS_CLASS, L"Animation", L"AnimationLayers", nullptr},
    {L"FloatLayers", false, CTRL_FLOAT_CLASS_ID, FLOAT_LAYERS_CLASS_ID, IDS_FLOAT_LAYERS_CLASS, L"Animation", L"FloatLayers", nullptr},
    {L"PositionLayers", false, CTRL_POSITION_CLASS_ID, POSITION_LAYERS_CLASS_ID, IDS_POSITION_LAYERS_CLASS, L"Animation", L"PositionLayers", nullptr},
    {L"RotationLayers", false, CTRL_ROTATION_CLASS_ID, ROTATION_LAYERS_CLASS_ID, IDS_ROTATION_LAYERS_CLASS, L"Animation", L"RotationLayers", nullptr},
    {L"ScaleLayers", false, CTRL_SCALE_CLASS_ID, SCALE_LAYERS_CLASS_ID, IDS_SCALE_LAYERS_CLASS, L"Animation", L"ScaleLayers", nullptr},
    {L"ControlShape", true, SHAPE_CLASS_ID, CONTROL_SHAPE_CLASS_ID, IDS_CONTROL_SHAPE_CLASS, L"Splines", L"ControlShape", &Make<ControlShape>, &ControlShape::DescribeBlocks},
    {L"IKFKDisplayMod", true, OSM_CLASS_ID, IKFK_DISPLAY_MOD_CLASS_ID, IDS_IKFK_DISPLAY_MOD_CLASS, L"", L"IKFKDisplayMod", nullptr},
    {L"AnimLayersLocalWeights", false, REF_TARGET_CLASS_ID, ANIM_LAYERS_LOCAL_WEIGHTS_CLASS_ID, IDS_ANIM_LAYERS_LOCAL_WEIGHTS_CLASS, L"Animation", L"AnimLayersLocalWeights", nullptr},
    {L"RotationXYZ", true, CTRL_ROTATION_CLASS_ID, ROTATION_XYZ_CLASS_ID, IDS_ROTATION_XYZ_CLASS, L"Animation", L"Rotation XYZ", &Make<RotationXYZ>},
};
// clang-format on

}  // namespace

Animatable* CatalogueClassDesc::Create(bool loading) {
    return row_.create ? row_.create(loading) : nullptr;
}

const wchar_t* CatalogueClassDesc::ClassName() {
    return GetString(row_.nameId);
}

// The library's module: the shared object this code was mapped from.
void* CatalogueClassDesc::HInstance() {
    Dl_info info;
    if (!dladdr(reinterpret_cast<void*>(&CatalogueSize), &info)) return nullptr;
    return info.dli_fbase;
}

int CatalogueSize() {
    return int(std::size(kCatalogue));
}

CatalogueClassDesc* CatalogueDesc(unsigned int i) {
    static std::vector<CatalogueClassDesc> descriptors = [] {
        std::vector<CatalogueClassDesc> all;
        all.reserve(std::size(kCatalogue));
        for (const CatalogueRow& row : kCatalogue) all.emplace_back(row);
        for (CatalogueClassDesc& desc : all) desc.Describe();
        return all;
    }();
    return i < descriptors.size() ? &descriptors[i] : nullptr;
}

}  // namespace zorvanta
