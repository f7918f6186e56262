#include "rig/RigBuild.h"

#include <numbers>

#include "animationmanager/ManagerIds.h"
#include "controllers/RigControl.h"
#include "frame/FrameIds.h"
#include "helpers/HelperIds.h"
#include "host/classes/BoneObject.h"
#include "host/classes/IEulerControl.h"
#include "host/classes/PointHelper.h"
#include "host/object/ClassRegistry.h"
#include "host/object/IDerivedObject.h"
#include "host/object/ILayerManager.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "rig/RigConstraints.h"
#include "rig/RigNames.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr COLORREF kBoneWireColor = 0xcab9ad;
constexpr COLORREF kHelperWireColor = 0x808080;

// The shape settings every new control starts from, besides its type, size, axis and
// gizmo: a plain, steady outline.
struct ShapeSetting {
    ParamID id;
    float value;
};
constexpr ShapeSetting kShapeFloats[] = {
    {CH_THICKNESS, 0.5f}, {CH_CORNER, 0.0f}, {CH_WARP_AMOUNT, 0.0f}};
constexpr ParamID kShapeOffInts[] = {CH_OFFSET_LINE, CH_FACE_CAMERA, CH_CONSTANT_SCREEN_SIZE,
                                     CH_DRAW_ON_TOP, CH_WARP_AXIS,   CH_SELECTOR_ACTIVE};
constexpr int kShapeSteps = 6;
// The panel's and the pose kit's blocks hold the size of their viewport icon at id 0.
constexpr ParamID kPanelIconSize = 0;

template <class T>
T* Make(SClass_ID superClass, const Class_ID& id) {
    return dynamic_cast<T*>(CreateInstance(superClass, id));
}

void LockAll(INode* node) {
    for (int type = 0; type < 3; ++type)
        for (int axis = 0; axis < 3; ++axis) node->SetTransformLock(type, axis, true);
}

// A StaticTransform as the node's transform controller (kept out when the class is
// missing: the node keeps its default one).
void AssignStaticTransform(INode* node) {
    if (auto* c = Make<Control>(CTRL_MATRIX3_CLASS_ID, STATIC_TRANSFORM_CLASS_ID))
        node->SetTMController(c);
}

// The animation manager's modifier on node, tagged with the short name and mirroring
// by the axes; its class comes from the class factory and nothing is added without it.
void AddManagerMod(INode* node, const WStr& shortName, int mirrorPosAxis, int mirrorRotAxis) {
    auto* mod = Make<Modifier>(OSM_CLASS_ID, ANIMATION_MANAGER_MOD_CLASS_ID);
    if (!mod) return;
    IDerivedObject* derived = dynamic_cast<IDerivedObject*>(node->GetObjectRef());
    if (!derived) {
        derived = CreateDerivedObject(node->GetObjectRef());
        node->SetObjectRef(derived);
    }
    derived->AddModifier(mod);
    if (IParamBlock2* pb = mod->GetParamBlock(0)) {
        pb->SetValue(AM_TAGS, 0, shortName.data());
        pb->SetValue(AM_USE_MIRROR_POS, 0, 1);
        pb->SetValue(AM_USE_MIRROR_ROT, 0, 1);
        pb->SetValue(AM_MIRROR_POS_AXIS, 0, mirrorPosAxis);
        pb->SetValue(AM_MIRROR_ROT_AXIS, 0, mirrorRotAxis);
    }
}

// A RigControl in figure mode as node's controller, with the Euler order when given.
void AssignRigControl(INode* node, int eulerOrder) {
    auto* rc = Make<RigControl>(CTRL_MATRIX3_CLASS_ID, RIG_CONTROL_CLASS_ID);
    if (!rc) return;
    if (eulerOrder != 0)
        if (Control* rotation = rc->RealRotationController())
            if (auto* euler = static_cast<IEulerControl*>(rotation->GetInterface(I_EULERCTRL)))
                euler->SetOrder(eulerOrder);
    node->SetTMController(rc);
    if (IParamBlock2* pb = rc->GetParamBlock(0)) pb->SetValue(RigControl::kFigureMode, 0, 1);
}

void SetUpShape(IParamBlock2* pb, int shape, float size, const Point3& offset, int axis) {
    if (!pb) return;
    pb->SetValue(CH_TYPE, 0, shape);
    pb->SetValue(CH_GIZMO, 0, TransMatrix(offset));
    pb->SetValue(CH_UNIFORM, 0, 1);
    for (ParamID id : {CH_SIZE, CH_LENGTH, CH_WIDTH, CH_HEIGHT}) pb->SetValue(id, 0, size);
    pb->SetValue(CH_AXIS, 0, axis);
    for (const ShapeSetting& s : kShapeFloats) pb->SetValue(s.id, 0, s.value);
    pb->SetValue(CH_STEPS, 0, kShapeSteps);
    for (ParamID id : kShapeOffInts) pb->SetValue(id, 0, 0);
}

}  // namespace

COLORREF ToColorRef(const Point3& color) {
    auto byte = [](float c) { return uint32_t(int(c * 255.0f + 0.5f)) & 0xFF; };
    return RGB(byte(color.x), byte(color.y), byte(color.z));
}

RigBuild::RigBuild(RigSystem& rig) : rig(rig), pblock(rig.Block()) {
    rigName = pblock->GetStr(RIG_NAME);
    Interface* ip = GetCOREInterface();
    for (int i = 0; i < 6; ++i)
        colors[i] = ip->GammaCorrect(pblock->GetColor(ParamID(RIG_COLOR_1 + i)));
    panelCursor[0] = Point2(676.0f, 300.0f);
    panelCursor[1] = Point2(685.0f, 306.0f);
}

IParamBlock2* RigBuild::ShapeBlock(INode* node) {
    Object* obj = node ? node->GetObjectRef() : nullptr;
    return obj ? obj->FindBaseObject()->GetParamBlock(0) : nullptr;
}

Point3 RigBuild::SideColor(int side, bool alternate) const {
    // colors[] holds color_1..color_6: per side the alternate, then the main colour.
    const int first = side == kSideRight ? 0 : side == kSideLeft ? 4 : 2;
    return colors[first + (alternate ? 0 : 1)];
}

WStr RigBuild::NodeName(const wchar_t* group, const WStr& shortName) const {
    return RigNodeName(rigName, group, shortName);
}

ILayer* RigBuild::GetOrCreateLayer(const wchar_t* word) {
    ILayerManager* layers = GetCOREInterface()->GetLayerManager();
    if (!layers) return nullptr;
    const WStr name(std::wstring(rigName.data()) + L" " + word);
    if (ILayer* layer = layers->GetLayer(name)) return layer;
    ILayer* layer = layers->CreateLayer(name);
    if (!layer) return nullptr;
    ILayer* parent = layers->GetLayer(rigName);
    if (!parent) parent = layers->CreateLayer(rigName);
    if (parent) layer->SetParentLayer(parent);
    return layer;
}

INode* RigBuild::NewNode(Object* obj, const WStr& name) {
    if (!obj) return nullptr;
    INode* node = GetCOREInterface()->CreateObjectNode(obj, name.data());
    const int at = pblock->Append(RIG_NODES, 1);
    if (at >= 0) pblock->SetValue(RIG_NODES, 0, static_cast<ReferenceTarget*>(node), at);
    return node;
}

void RigBuild::Place(INode* node, INode* parent, const Matrix3& tm, ILayer* layer) {
    if (parent) parent->AttachChild(node, false);
    node->SetNodeTM(0, tm);
    if (layer) layer->AddToLayer(node);
}

INode* RigBuild::NewControlShapeNode(const Matrix3& tm, INode* parent, int shape, float size,
                                     bool alternate, const wchar_t* name, int side, int index,
                                     int sub, int eulerOrder, const Point3& offset, int axis,
                                     int mirrorPosAxis, int mirrorRotAxis) {
    // The control shape's class comes from the class factory.
    auto* obj = Make<Object>(SHAPE_CLASS_ID, CONTROL_SHAPE_CLASS_ID);
    const WStr shortName = RigShortName(name, side, index, sub);
    INode* node = NewNode(obj, NodeName(nullptr, shortName));
    if (!node) return nullptr;
    controlNodes.Append(1, &node);
    AssignRigControl(node, eulerOrder);
    SetUpShape(obj->GetParamBlock(0), shape, size, offset, axis);
    node->SetRenderable(false);
    if (side == kSideRight) {
        const Point3 mirror = mirrorPosAxis == 0 ? Point3(-1, 1, 1) : Point3(1, 1, -1);
        node->SetObjOffsetScale(ScaleValue(mirror, Quat()));
        rightControls.Append(1, &node);
    } else if (side == kSideLeft) {
        leftControls.Append(1, &node);
    }
    node->SetWireColor(ToColorRef(SideColor(side, alternate)));
    AddManagerMod(node, shortName, mirrorPosAxis, mirrorRotAxis);
    Place(node, parent, tm, controlsLayer);
    return node;
}

INode* RigBuild::NewBone(const Matrix3& tm, INode* parent, float width, float length, bool flat,
                         const wchar_t* name, int side, int index, int sub, bool lock) {
    auto* obj = Make<Object>(GEOMOBJECT_CLASS_ID, BONE_OBJECT_CLASS_ID);
    INode* node = NewNode(obj, NodeName(L"bone", RigShortName(name, side, index, sub)));
    if (!node) return nullptr;
    boneNodes.Append(1, &node);
    if (IParamBlock2* pb = obj->GetParamBlock(0)) {
        pb->SetValue(BoneObject::WIDTH, 0, width);
        pb->SetValue(BoneObject::HEIGHT, 0, width);
        pb->SetValue(BoneObject::LENGTH, 0, length);
        pb->SetValue(BoneObject::TAPER, 0, flat ? 0.0f : 90.0f);
        for (ParamID fin : {BoneObject::SIDE_FINS, BoneObject::FRONT_FIN, BoneObject::BACK_FIN})
            pb->SetValue(fin, 0, 0);
    }
    node->SetWireColor(kBoneWireColor);
    AssignStaticTransform(node);
    Place(node, parent, tm, nullptr);
    node->SetBoneNodeOnOff(true, 0);
    node->SetBoneAutoAlign(false);
    node->SetBoneScaleType(0);
    if (lock) LockAll(node);
    if (bonesLayer) bonesLayer->AddToLayer(node);
    return node;
}

INode* RigBuild::NewPointHelper(const Matrix3& tm, INode* parent, float size, const wchar_t* name,
                                int side, int index, int sub, bool lock) {
    auto* obj = Make<Object>(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID);
    INode* node = NewNode(obj, NodeName(L"helper", RigShortName(name, side, index, sub)));
    if (!node) return nullptr;
    helperNodes.Append(1, &node);
    if (IParamBlock2* pb = obj->GetParamBlock(0)) {
        pb->SetValue(PointHelper::SIZE, 0, size);
        for (ParamID id : {PointHelper::CENTER_MARKER, PointHelper::AXIS_TRIPOD, PointHelper::BOX,
                           PointHelper::SCREEN_SIZE, PointHelper::DRAW_ON_TOP})
            pb->SetValue(id, 0, 0);
        pb->SetValue(PointHelper::CROSS, 0, 1);
    }
    node->SetWireColor(kHelperWireColor);
    AssignStaticTransform(node);
    Place(node, parent, tm, helpersLayer);
    if (lock) LockAll(node);
    return node;
}

INode* RigBuild::NewHelperBone(INode* parent, INode* target, const wchar_t* name, float width,
                               int side, int index, int sub) {
    if (!target) return nullptr;
    const Matrix3 tm = target->GetNodeTM(0);
    INode* node = NewBone(tm, parent, width, width, false, name, side, index, sub, false);
    if (!node) return nullptr;
    if (auto* prs = Make<Control>(CTRL_MATRIX3_CLASS_ID, PRS_CLASS_ID)) {
        node->SetTMController(prs);
        node->SetNodeTM(0, tm);
    }
    INode* ends[] = {parent, target};
    INodeTab targets;
    for (INode* end : ends)
        if (end) targets.Append(1, &end);
    ConstrainOrientation(node, targets, false, 0);
    if (Control* tmc = node->GetTMController())
        if (auto* scale = Make<Control>(CTRL_SCALE_CLASS_ID, STATIC_SCALE_CLASS_ID))
            tmc->SetScaleController(scale);
    return node;
}

INode* RigBuild::NewPanelNode(const Class_ID& id, const wchar_t* base, INode* attachTo,
                              const Placement& body, const Placement& face) {
    // The panel and the pose kit come from the class factory.
    auto* obj = Make<Object>(HELPER_CLASS_ID, id);
    const WStr shortName(std::wstring(buildingFace ? L"Face_" : L"") + base);
    INode* node = NewNode(obj, NodeName(nullptr, shortName));
    if (!node) return nullptr;
    const Placement& place = buildingFace ? face : body;
    AssignStaticTransform(node);
    AssignRigControl(node, 0);
    AddManagerMod(node, shortName, 2, 0);
    if (attachTo) {
        IParamBlock2* mainShape = ShapeBlock(mainNode);
        const float mainSize = mainShape ? mainShape->GetFloat(CH_SIZE) : size;
        Matrix3 tm = attachTo->GetNodeTM(0);
        tm.PreTranslate(place.offset * mainSize);
        tm.PreRotateX(place.rotateX);
        tm.PreRotateZ(place.rotateZ);
        node->SetNodeTM(0, tm);
        if (IParamBlock2* pb = obj->GetParamBlock(0))
            pb->SetValue(kPanelIconSize, 0, place.scale * mainSize);
        node->SetWireColor(attachTo->GetWireColor());
        attachTo->AttachChild(node, true);
    }
    if (controlsLayer) controlsLayer->AddToLayer(node);
    return node;
}

INode* RigBuild::NewUIPanel(INode* attachTo) {
    constexpr float kHalfPi = std::numbers::pi_v<float> / 2;
    return NewPanelNode(UI_PANEL_CLASS_ID, L"UIPanel", attachTo,
                        {Point3(0.1f, -0.4f, 0.0f), 0.1f, 0.0f, 0.0f},
                        {Point3(17.19f, 0.0f, 3.51f), 4.29f, kHalfPi, 0.0f});
}

INode* RigBuild::NewPoseKit(INode* attachTo) {
    constexpr float kPi = std::numbers::pi_v<float>;
    return NewPanelNode(POSE_KIT_CLASS_ID, L"PoseKit", attachTo,
                        {Point3(-0.1f, -0.4f, 0.0f), 0.12f, 0.0f, 0.0f},
                        {Point3(17.19f, 0.0f, -3.51f), 4.5f, -kPi / 2, kPi});
}

}  // namespace zorvanta
