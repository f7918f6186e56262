#include "rig/RigSystem.h"

#include <cassert>

#include "frame/StringTable.h"
#include "host/object/ClassDesc2.h"
#include "host/object/IParamBlock2.h"
#include "host/object/PBAccessor.h"
#include "host/object/PanelService.h"
#include "host/object/ParamBlockDesc2.h"
#include "rig/GuideLayouts.h"
#include "rig/InitPtsAccessor.h"
#include "rig/PointsRestore.h"
#include "rig/RigComponents.h"
#include "rig/RigExtraPoints.h"
#include "rig/RigNames.h"
#include "rig/StructureAccessor.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr float kHuge = 1e30f;

// The class's one block, defined for the descriptor that the first call passes.
ParamBlockDesc2& RigBlock(ClassDesc2* desc = nullptr) {
    // clang-format off
    static InitPtsAccessor& initPts = InitPtsAccessor::Instance();
    static StructureAccessor& structure = StructureAccessor::Instance();
    static ParamBlockDesc2 block(0, L"params", P_AUTO_CONSTRUCT, 0, desc, {
        {RIG_NODES, nullptr, TableOf(TYPE_INODE), 0, 0, {}},
        {RIG_ACTIVE, nullptr, TYPE_BOOL, 0, IDS_P_RIG_ACTIVE, {.i = 1}, std::nullopt, &initPts},
        {RIG_NAME, L"rig_name", TYPE_STRING, 0, IDS_P_RIG_NAME, {.s = WStr(L"Rig")}},
        {RIG_TYPE, nullptr, TYPE_INDEX, 0, IDS_P_RIG_TYPE, {.i = 0}, std::nullopt, &initPts},
        {RIG_HELPER_SIZE, L"helper_size", TYPE_WORLD, 0, IDS_P_RIG_HELPER_SIZE, {.f = 100.0f}, {{0.0f, kHuge}}, &initPts},
        {RIG_DRAW_ON_TOP, L"draw_on_top", TYPE_BOOL, 0, IDS_P_RIG_DRAW_ON_TOP, {.i = 1}},
        {RIG_SIDE, L"side", TYPE_INT, 0, IDS_P_RIG_SIDE, {.i = 2}, {{0.0f, 2.0f}}, &initPts},
        {RIG_AFFECT_CHILDREN, L"affect_children", TYPE_BOOL, 0, IDS_P_RIG_AFFECT_CHILDREN, {.i = 1}},
        {RIG_AFFECT_MIRROR, L"affect_mirror", TYPE_BOOL, 0, IDS_P_RIG_AFFECT_MIRROR, {.i = 1}},
        {RIG_MIRROR_RELATIVE_TO_PARENT, L"mirror_relative_to_parent", TYPE_BOOL, 0, IDS_P_RIG_MIRROR_RELATIVE_TO_PARENT, {.i = 1}},
        {RIG_IKFK_SOLVERS, L"ikfk_solvers", TYPE_BOOL, 0, IDS_P_RIG_IKFK_SOLVERS, {.i = 1}},
        {RIG_SUB_CONTROLS, L"sub_controls", TYPE_BOOL, 0, IDS_P_RIG_SUB_CONTROLS, {.i = 0}},
        {RIG_BENDY_CONTROLS, L"bendy_controls", TYPE_BOOL, 0, IDS_P_RIG_BENDY_CONTROLS, {.i = 0}},
        {RIG_ROOT_BONE, L"root_bone", TYPE_BOOL, 0, IDS_P_RIG_ROOT_BONE, {.i = 0}},
        {RIG_CORRECTIVE_BONES, L"corrective_bones", TYPE_BOOL, 0, IDS_P_RIG_CORRECTIVE_BONES, {.i = 0}},
        {RIG_END_BONES, L"end_bones", TYPE_BOOL, 0, IDS_P_RIG_END_BONES, {.i = 0}},
        {RIG_COLOR_1, L"color_1", TYPE_RGBA, 0, IDS_P_RIG_COLOR_1, {.p = Point3(0.75f, 0.0f, 0.0f)}, std::nullopt, &initPts},
        {RIG_COLOR_2, L"color_2", TYPE_RGBA, 0, IDS_P_RIG_COLOR_2, {.p = Point3(1.0f, 0.25f, 0.0f)}, std::nullopt, &initPts},
        {RIG_COLOR_3, L"color_3", TYPE_RGBA, 0, IDS_P_RIG_COLOR_3, {.p = Point3(0.25f, 1.0f, 0.0f)}, std::nullopt, &initPts},
        {RIG_COLOR_4, L"color_4", TYPE_RGBA, 0, IDS_P_RIG_COLOR_4, {.p = Point3(1.0f, 1.0f, 0.0f)}, std::nullopt, &initPts},
        {RIG_COLOR_5, L"color_5", TYPE_RGBA, 0, IDS_P_RIG_COLOR_5, {.p = Point3(0.0f, 0.0f, 0.75f)}, std::nullopt, &initPts},
        {RIG_COLOR_6, L"color_6", TYPE_RGBA, 0, IDS_P_RIG_COLOR_6, {.p = Point3(0.0f, 0.25f, 1.0f)}, std::nullopt, &initPts},
        {RIG_HEADS, L"heads", TYPE_INT, 0, IDS_P_RIG_HEADS, {.i = 1}, {{0.0f, 1.0f}}, &initPts},
        {RIG_NECK_CONTROLS, L"neck_controls", TYPE_INT, 0, IDS_P_RIG_NECK_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_NECK_BONES, L"neck_bones", TYPE_INT, 0, IDS_P_RIG_NECK_BONES, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_NECK_BONES, L"use_neck_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_NECK_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_PONYTAILS, L"ponytails", TYPE_INT, 0, IDS_P_RIG_PONYTAILS, {.i = 0}, {{0.0f, 99.0f}}, &initPts},
        {RIG_PONYTAIL_CONTROLS, L"ponytail_controls", TYPE_INT, 0, IDS_P_RIG_PONYTAIL_CONTROLS, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_PONYTAIL_BONES, L"ponytail_bones", TYPE_INT, 0, IDS_P_RIG_PONYTAIL_BONES, {.i = 6}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_PONYTAIL_BONES, L"use_ponytail_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_PONYTAIL_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_FANGS, L"fangs", TYPE_BOOL, 0, IDS_P_RIG_FANGS, {.i = 1}, std::nullopt, &initPts},
        {RIG_SPINE_CONTROLS, L"spine_controls", TYPE_INT, 0, IDS_P_RIG_SPINE_CONTROLS, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_SPINE_BONES, L"spine_bones", TYPE_INT, 0, IDS_P_RIG_SPINE_BONES, {.i = 6}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_SPINE_BONES, L"use_spine_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_SPINE_BONES, {.i = 1}, std::nullopt, &initPts},
        {RIG_IK_SPINE, L"ik_spine", TYPE_BOOL, 0, IDS_P_RIG_IK_SPINE, {.i = 1}, std::nullopt, &initPts},
        {RIG_TAILS, L"tails", TYPE_INT, 0, IDS_P_RIG_TAILS, {.i = 0}, {{0.0f, 99.0f}}, &initPts},
        {RIG_TAIL_CONTROLS, L"tail_controls", TYPE_INT, 0, IDS_P_RIG_TAIL_CONTROLS, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_TAIL_BONES, L"tail_bones", TYPE_INT, 0, IDS_P_RIG_TAIL_BONES, {.i = 6}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_TAIL_BONES, L"use_tail_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_TAIL_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_ARM_PAIRS, L"arm_pairs", TYPE_INT, 0, IDS_P_RIG_ARM_PAIRS, {.i = 1}, {{0.0f, 99.0f}}, &initPts},
        {RIG_FINGERS, L"fingers", TYPE_INT, 0, IDS_P_RIG_FINGERS, {.i = 5}, {{0.0f, 99.0f}}, &initPts},
        {RIG_FINGER_BONES, L"finger_bones", TYPE_INT, 0, IDS_P_RIG_FINGER_BONES, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_METACARPALS, L"metacarpals", TYPE_BOOL, 0, IDS_P_RIG_METACARPALS, {.i = 0}, std::nullopt, &initPts},
        {RIG_LEG_PAIRS, L"leg_pairs", TYPE_INT, 0, IDS_P_RIG_LEG_PAIRS, {.i = 1}, {{0.0f, 99.0f}}, &initPts},
        {RIG_TOES, L"toes", TYPE_INT, 0, IDS_P_RIG_TOES, {.i = 1}, {{0.0f, 99.0f}}, &initPts},
        {RIG_TOE_BONES, L"toe_bones", TYPE_INT, 0, IDS_P_RIG_TOE_BONES, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_METATARSALS, L"metatarsals", TYPE_BOOL, 0, IDS_P_RIG_METATARSALS, {.i = 0}, std::nullopt, &initPts},
        {RIG_REVERSE_FOOT, L"reverse_foot", TYPE_BOOL, 0, IDS_P_RIG_REVERSE_FOOT, {.i = 1}, std::nullopt, &initPts},
        {RIG_UPPER_ARM_TWIST_BONES, L"upper_arm_twist_bones", TYPE_INT, 0, IDS_P_RIG_UPPER_ARM_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_FOREARM_TWIST_BONES, L"forearm_twist_bones", TYPE_INT, 0, IDS_P_RIG_FOREARM_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_FRONT_CANNON_TWIST_BONES, L"front_cannon_twist_bones", TYPE_INT, 0, IDS_P_RIG_FRONT_CANNON_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_THIGH_TWIST_BONES, L"thigh_twist_bones", TYPE_INT, 0, IDS_P_RIG_THIGH_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_CALF_TWIST_BONES, L"calf_twist_bones", TYPE_INT, 0, IDS_P_RIG_CALF_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_CANNON_TWIST_BONES, L"cannon_twist_bones", TYPE_INT, 0, IDS_P_RIG_CANNON_TWIST_BONES, {.i = 3}, {{0.0f, 99.0f}}, &initPts},
        {RIG_FACE, L"face", TYPE_BOOL, 0, IDS_P_RIG_FACE, {.i = 0}, std::nullopt, &initPts},
        {RIG_MORPHER_BASED, L"morpher_based", TYPE_BOOL, 0, IDS_P_RIG_MORPHER_BASED, {.i = 0}, std::nullopt, &initPts},
        {RIG_EYELIDS_CONTROLS, L"eyelids_controls", TYPE_INT, 0, IDS_P_RIG_EYELIDS_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_EYELIDS_BONES, L"eyelids_bones", TYPE_INT, 0, IDS_P_RIG_EYELIDS_BONES, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_EYELID_BONES, L"use_eyelid_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_EYELID_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_EYEBROWS_CONTROLS, L"eyebrows_controls", TYPE_INT, 0, IDS_P_RIG_EYEBROWS_CONTROLS, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_EYEBROWS_BONES, L"eyebrows_bones", TYPE_INT, 0, IDS_P_RIG_EYEBROWS_BONES, {.i = 7}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_EYEBROW_BONES, L"use_eyebrow_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_EYEBROW_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_CHEEKBONE_CONTROLS, L"cheekbone_controls", TYPE_INT, 0, IDS_P_RIG_CHEEKBONE_CONTROLS, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_CHEEKBONE_BONES, L"cheekbone_bones", TYPE_INT, 0, IDS_P_RIG_CHEEKBONE_BONES, {.i = 7}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_CHEEKBONE_BONES, L"use_cheekbone_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_CHEEKBONE_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_NOSE_CONTROLS, L"nose_controls", TYPE_INT, 0, IDS_P_RIG_NOSE_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_NOSE_BONES, L"nose_bones", TYPE_INT, 0, IDS_P_RIG_NOSE_BONES, {.i = 2}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_NOSE_BONES, L"use_nose_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_NOSE_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_LIPS_CONTROLS, L"lips_controls", TYPE_INT, 0, IDS_P_RIG_LIPS_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_LIPS_BONES, L"lips_bones", TYPE_INT, 0, IDS_P_RIG_LIPS_BONES, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_LIPS_BONES, L"use_lips_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_LIPS_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_NASOLABIAL_CONTROLS, L"nasolabial_controls", TYPE_INT, 0, IDS_P_RIG_NASOLABIAL_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_NASOLABIAL_BONES, L"nasolabial_bones", TYPE_INT, 0, IDS_P_RIG_NASOLABIAL_BONES, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_NASOLABIAL_BONES, L"use_nasolabial_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_NASOLABIAL_BONES, {.i = 1}, std::nullopt, &initPts},
        {RIG_CHIN_CONTROLS, L"chin_controls", TYPE_INT, 0, IDS_P_RIG_CHIN_CONTROLS, {.i = 1}, {{1.0f, 99.0f}}, &initPts},
        {RIG_CHIN_BONES, L"chin_bones", TYPE_INT, 0, IDS_P_RIG_CHIN_BONES, {.i = 3}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_CHIN_BONES, L"use_chin_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_CHIN_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_TONGUE_CONTROLS, L"tongue_controls", TYPE_INT, 0, IDS_P_RIG_TONGUE_CONTROLS, {.i = 2}, {{1.0f, 99.0f}}, &initPts},
        {RIG_TONGUE_BONES, L"tongue_bones", TYPE_INT, 0, IDS_P_RIG_TONGUE_BONES, {.i = 4}, {{1.0f, 99.0f}}, &initPts},
        {RIG_USE_TONGUE_BONES, L"use_tongue_bones", TYPE_BOOL, 0, IDS_P_RIG_USE_TONGUE_BONES, {.i = 0}, std::nullopt, &initPts},
        {RIG_SELECTED_COMPONENT, L"selected_component", TYPE_INDEX, 0, IDS_P_RIG_SELECTED_COMPONENT, {.i = 0}, std::nullopt, &structure},
    });
    // clang-format on
    return block;
}

// The descriptor DescribeBlocks defined the block for: it runs before any instance.
ClassDesc2* DescribedClass() {
    ClassDesc2* desc = RigBlock().GetClassDesc();
    assert(desc && "RigSystem::DescribeBlocks runs before any instance is made");
    return desc;
}

}  // namespace

void RigSystem::DescribeBlocks(ClassDesc2* desc) {
    RigBlock(desc);
    desc->AddInterface(IRigSystem::Desc());
}

const ParamBlockDesc2* RigSystem::BlockDesc() {
    return &RigBlock();
}

RigSystem::RigSystem(bool loading) : BlockObject(DescribedClass(), loading) {
    if (!loading) RebuildPoints(true);
}

RigSystem::~RigSystem() = default;

WStr RigSystem::GetClassName() {
    return WStr(GetString(IDS_RIG_CLASS));
}

// The rig's rollup, through the panel service (nothing opens without a user interface).
void RigSystem::BeginEditParams(IObjParam*, uint32_t, Animatable*) {
    rollup = GetPanelService().AddRollup(this, ClassID(), WStr(GetString(IDS_PARAMETERS)));
}

void RigSystem::EndEditParams(IObjParam*, uint32_t, Animatable*) {
    if (rollup) GetPanelService().DeleteRollup(rollup);
    rollup = nullptr;
}

FPInterface* RigSystem::GetInterface(Interface_ID id) {
    if (id == RIG_SYSTEM_INTERFACE_ID) return static_cast<IRigSystem*>(this);
    return BlockObject::GetInterface(id);
}

void RigSystem::RebuildPoints(bool discard) {
    RebuildPoints(discard, GuideParams::Read(pblock_));
}

void RigSystem::RebuildPoints(bool discard, const GuideParams& params) {
    if (theHold.Holding()) theHold.Put(new PointsRestore(this));
    // The points of the previous rebuild, whose moved positions carry over.
    std::vector<RigPoint> oldPoints;
    if (!discard) oldPoints = std::move(points);
    points.clear();
    GuideBuilder builder(points, oldPoints, params, lastParams, selectedComponent);
    BuildGuideLayout(builder);
    BuildExtraPoints(points, oldPoints, extras, selectedComponent);
    lastParams = params;
    PointsChanged();
}

int RigSystem::FindPoint(const wchar_t* name, int side, int index, int sub) const {
    const WStr full = RigShortName(name, side, index, sub);
    for (size_t i = 0; i < points.size(); ++i)
        if (points[i].name == full) return int(i);
    return -1;
}

Point3 RigSystem::PointPos(int i) const {
    if (i < 0 || size_t(i) >= points.size()) return Point3();
    return points[size_t(i)].pos * lastParams.helperSize;
}

Point3 RigSystem::GetPointPos(const WStr& name, int side, int index, int subIndex) {
    return PointPos(FindPoint(name.data(), side, index, subIndex));
}

void RigSystem::SetPointPos(const WStr& name, const Point3& pos, int side, int index,
                            int subIndex) {
    const int i = FindPoint(name.data(), side, index, subIndex);
    if (i < 0) return;
    points[size_t(i)].pos = pos / HelperSize();
    PointsChanged();
}

int RigSystem::GetType() {
    return pblock_ ? pblock_->GetInt(RIG_TYPE) : 0;
}

void RigSystem::SetType(int type) {
    if (pblock_) pblock_->SetValue(RIG_TYPE, 0, type);
}

// Writes the type's structure defaults; the accessors these writes run see the
// writer and leave the rebuild to the type change.
class RigSystem::TypeDefaultsWriter {
public:
    explicit TypeDefaultsWriter(RigSystem* rig) : rig_(rig) { rig_->writingDefaults = true; }
    ~TypeDefaultsWriter() { rig_->writingDefaults = false; }
    TypeDefaultsWriter(const TypeDefaultsWriter&) = delete;
    TypeDefaultsWriter& operator=(const TypeDefaultsWriter&) = delete;

private:
    RigSystem* rig_;
};

void RigSystem::WriteTypeDefaults(int type) {
    TypeDefaultsWriter writer(this);
    for (const auto& [param, value] : StructureDefaultValues(type))
        pblock_->SetValue(param, 0, value);
}

void RigSystem::ParamChanging(ParamID id, int value) {
    // Undo and redo put the points back through the PointsRestore of the rebuild.
    if (!pblock_ || writingDefaults || IsLoading() || theHold.RestoreOrRedoing()) return;
    if (id == RIG_TYPE) WriteTypeDefaults(value);
    GuideParams params = GuideParams::Read(pblock_);
    if (id < kRigParamIdCount && KindOf(pblock_->GetParamDef(id)->type) == ValueKind::Int)
        params[RigParam(id)] = value;
    RebuildPoints(id == RIG_TYPE || id == RIG_SIDE, params);
}

void RigSystem::HelperSizeChanging(float size) {
    lastParams.helperSize = size;
    boundsDirty = true;
}

void RigSystem::SelectedComponentChanging(int value) {
    selectedComponent = value;
    if (IsLoading() || theHold.RestoreOrRedoing() || !StructureAccessor::SelectionEffectOn())
        return;
    if (subObjLevel == kPointLevel && value >= 0) SelectComponent(value);
}

void RigSystem::WriteSelectedComponent(int value) {
    selectedComponent = value;
    if (!pblock_) return;
    StructureAccessor::SelectionEffectOff quiet;
    pblock_->SetValue(RIG_SELECTED_COMPONENT, 0, value);
}

void RigSystem::UpdateBounds(TimeValue t) {
    // The size is read from the block, which may change without the points changing.
    const float size = HelperSize();
    if (!boundsDirty && t == boundsTime && size == boundsSize) return;
    bounds.Init();
    numSelected = 0;
    Point3 sum;
    for (const RigPoint& p : points) {
        const Point3 at = p.pos * size;
        bounds += at;
        if (!p.selected || p.Fixed()) continue;
        sum += at;
        ++numSelected;
    }
    gizmoTM = Matrix3();
    if (numSelected) gizmoTM.SetTrans(sum / float(numSelected));
    boundsTime = t;
    boundsSize = size;
    boundsDirty = false;
}

void RigSystem::PointsChanged() {
    pointSelection.SetSize(int(points.size()));
    for (size_t i = 0; i < points.size(); ++i) pointSelection.Set(int(i), points[i].selected != 0);
    RebuildDrawLists();
    boundsDirty = true;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void RigSystem::LoadTemplateState(const TemplateState& state) {
    points = state.points;
    extras = state.extras;
    lastParams = state.params;
    PointsChanged();
}

}  // namespace zorvanta
