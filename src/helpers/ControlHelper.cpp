#include "helpers/ControlHelper.h"

#include <array>
#include <cassert>
#include <memory>
#include <string>

#include "extra/ExtraIds.h"
#include "extra/WeakRefOwnerAccessor.h"
#include "frame/StringTable.h"
#include "host/classes/ChunkIO.h"
#include "host/object/ClassDesc2.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/HitLog.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/PanelService.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/RestoreObj.h"
#include "host/object/SubObject.h"
#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr float kHuge = 1e30f;

// The class's one block, defined for the descriptor that the first call passes.
ParamBlockDesc2& ControlHelperBlock(ClassDesc2* desc = nullptr) {
    // Fetched before the table: a call inside it makes GCC see a half-built table.
    static PBAccessor* const selectorAccessor = &WeakRefOwnerAccessor::Instance();
    // clang-format off
    static ParamBlockDesc2 block(0, L"params", P_AUTO_CONSTRUCT, 0, desc, {
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
    });
    // clang-format on
    return block;
}

// The descriptor DescribeBlocks defined the block for: it runs before any instance.
ClassDesc2* DescribedClass() {
    ClassDesc2* desc = ControlHelperBlock().GetClassDesc();
    assert(desc && "ControlHelper::DescribeBlocks runs before any instance is made");
    return desc;
}

// One transform tool of the gizmo level. The tools are shared by every control helper:
// the host edits one object at a time.
class GizmoMode : public CommandMode {
public:
    explicit GizmoMode(int modeClass) : class_(modeClass) {}
    int Class() override { return class_; }

private:
    int class_;
};

enum ModeSlot { kMoveMode, kRotateMode, kScaleMode, kUScaleMode, kSquashMode, kSelectMode };
constexpr int kModeClasses[] = {MOVE_COMMAND,   ROTATE_COMMAND, SCALE_COMMAND,
                                USCALE_COMMAND, SQUASH_COMMAND, SELECT_COMMAND};
std::array<std::unique_ptr<GizmoMode>, std::size(kModeClasses)> gModes;

// A level's name from the string table, kept: the table's buffer is overwritten.
GenSubObjType& SubObjTypeNamed(int stringId) {
    static std::wstring gizmo = GetString(IDS_GIZMO);
    static std::wstring selector = GetString(IDS_SELECTOR_POLYGON);
    static GenSubObjType gizmoType(gizmo.c_str());
    static GenSubObjType selectorType(selector.c_str());
    return stringId == IDS_GIZMO ? gizmoType : selectorType;
}

// The parts that a change of level concerns: the display, the selection and the
// sub-object state.
constexpr PartID kSubObjectParts = 0x70;

}  // namespace

// The face selection from before a change, and from after it for redo.
class ControlHelper::SelectorFSelRestore : public RestoreObj {
public:
    explicit SelectorFSelRestore(ControlHelper* owner)
        : pin_(owner), owner_(owner), undoSel_(owner->faceSel) {}
    void Restore(bool isUndo) override {
        if (isUndo) redoSel_ = owner_->faceSel;
        owner_->faceSel = undoSel_;
        owner_->RefreshSelection();
    }
    void Redo() override {
        owner_->faceSel = redoSel_;
        owner_->RefreshSelection();
    }
    int Size() override { return int(sizeof(*this)); }
    WStr Description() override { return WStr(L"SelectorFSelRestore"); }

private:
    TargetPin pin_;
    ControlHelper* owner_;
    BitArray undoSel_;
    BitArray redoSel_;
};

void ControlHelper::DescribeBlocks(ClassDesc2* desc) {
    ControlHelperBlock(desc);
    desc->AddInterface(IControlHelper::Desc());
}

ControlHelper::ControlHelper(bool loading) : BlockObject(DescribedClass(), loading) {}

WStr ControlHelper::GetClassName() {
    return WStr(GetString(IDS_CONTROL_HELPER_CLASS));
}

void* ControlHelper::GetInterface(uint32_t id) {
    if (id == WEAK_REF_OWNER_INTERFACE) return static_cast<WeakRefOwner*>(this);
    return BlockObject::GetInterface(id);
}

FPInterface* ControlHelper::GetInterface(Interface_ID id) {
    if (id == CONTROL_HELPER_INTERFACE_ID) return static_cast<IControlHelper*>(this);
    return BlockObject::GetInterface(id);
}

void ControlHelper::BeginEditParams(IObjParam* editIp, uint32_t, Animatable*) {
    ip = editIp;
    rollup = GetPanelService().AddRollup(this, ClassID(), WStr(GetString(IDS_PARAMETERS)));
    selectorRollup = GetPanelService().AddRollup(this, ClassID(), WStr(GetString(IDS_SELECTOR)));
    for (size_t i = 0; i < gModes.size(); ++i)
        if (!gModes[i]) gModes[i] = std::make_unique<GizmoMode>(kModeClasses[i]);
}

void ControlHelper::EndEditParams(IObjParam*, uint32_t, Animatable*) {
    if (rollup) GetPanelService().DeleteRollup(rollup);
    if (selectorRollup) GetPanelService().DeleteRollup(selectorRollup);
    rollup = selectorRollup = nullptr;
    ip = nullptr;
    for (auto& mode : gModes) mode.reset();
}

IOResult ControlHelper::Save(ISave* isave) {
    WriteBitsChunk(isave, CONTROL_HELPER_FACE_SEL_CHUNK, faceSel);
    return IO_OK;
}

IOResult ControlHelper::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        return id == CONTROL_HELPER_FACE_SEL_CHUNK ? ReadBits(iload, faceSel) : IO_OK;
    });
}

ReferenceTarget* ControlHelper::Clone(RemapDir& remap) {
    auto* copy = new ControlHelper(true);
    copy->ReplaceReference(0, remap.CloneRef(pblock_));
    CloneWeakRefs(*copy, remap);
    copy->faceSel = faceSel;
    BaseClone(this, copy, remap);
    return copy;
}

ControlDisplaySettings ControlHelper::Settings(TimeValue t) {
    return {pblock_->GetMatrix3(CH_GIZMO, t), pblock_->GetInt(CH_AXIS, t),
            pblock_->GetInt(CH_FACE_CAMERA, t) != 0,
            pblock_->GetInt(CH_CONSTANT_SCREEN_SIZE, t) != 0};
}

// A control on an IKFK chain fades with the chain's blend. The IKFK controller is not
// part of this library yet, so every control is drawn at its full weight; the callers
// keep the rule that a weight under kMinDisplayWeight hides the control.
float ControlHelper::DisplayWeight(TimeValue, INode*) {
    return 1.0f;
}

Matrix3 ControlHelper::DisplayTM(TimeValue t, INode* node, ViewExp* vpt) {
    if (!vpt) vpt = &GetCOREInterface()->GetActiveViewExp();
    const Matrix3 objectTM = node ? node->GetObjectTM(t) : Matrix3();
    if (!pblock_) return objectTM;
    Matrix3 tm = ControlDisplayTM(objectTM, Settings(t), vpt);
    const float weight = DisplayWeight(t, node);
    if (weight != 1.0f) tm.PreScale(Point3(weight, weight, weight));
    return tm;
}

Point3 ControlHelper::NodePosition(TimeValue t, INode* node) {
    return node ? node->GetNodeTM(t).GetTrans() : Point3::Origin;
}

WireOutline ControlHelper::Outline(TimeValue t, INode* node, const Matrix3& displayTM) {
    ShapeInputs in = ReadShapeInputs(pblock_, t);
    in.nodePosition = NodePosition(t, node) * Inverse(displayTM);
    WireOutline outline;
    ShapeOutline(in, outline);
    return outline;
}

int ControlHelper::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    if (!pblock_ || !node || !vpt || !vpt->IsAlive()) return 0;
    if (DisplayWeight(t, node) < kMinDisplayWeight) return 0;
    GraphicsWindow* gw = vpt->getGW();
    const uint32_t limits = gw->getRndLimits();
    if (pblock_->GetInt(CH_DRAW_ON_TOP, t)) gw->setRndLimits(limits & ~GW_Z_BUFFER);
    SetWireColors(gw, node);
    if (subObjLevel == kGizmoLevel) gw->setColor(LINE_COLOR, GetUIColor(COLOR_SEL_GIZMOS));

    const Matrix3 tm = DisplayTM(t, node, vpt);
    gw->setTransform(tm);
    Outline(t, node, tm).Draw(gw);
    // The selector overlay would draw here when selector_active is on; it is not built.
    if (subObjLevel == kGizmoLevel) {
        gw->setTransform(node->GetObjectTM(t));
        gw->setColor(LINE_COLOR, GetUIColor(COLOR_GIZMOS));
        gw->setColor(MARKER_COLOR, GetUIColor(COLOR_GIZMOS));
        gw->marker(&Point3::Origin, SM_HOLLOW_BOX_MRKR);
    }
    gw->setRndLimits(limits);
    return 1;
}

int ControlHelper::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                           ViewExp* vpt) {
    if (!pblock_) return 0;
    // The selector overlay, tried first when it is on, is not built: only the outline hits.
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

// Faces of the selector node are picked at level 2 through the overlay's pick mesh,
// which is not built: nothing is hit.
int ControlHelper::HitTest(TimeValue, INode*, int, int, int, IPoint2*, ViewExp*, ModContext*) {
    return 0;
}

void ControlHelper::Snap(TimeValue t, INode* node, SnapInfo* snap, IPoint2* p, ViewExp* vpt) {
    if (pblock_ && node) PointSnap(snap, node->GetObjectTM(t), Point3::Origin, p, vpt);
}

void ControlHelper::GetWorldBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    box.Init();
    if (!pblock_ || DisplayWeight(t, node) < kMinDisplayWeight) return;
    // The selector overlay's box would join here when selector_active is on.
    box = ShapeLocalBox(ReadShapeInputs(pblock_, t)) * DisplayTM(t, node, vpt);
    if (pblock_->GetInt(CH_OFFSET_LINE, t)) box += NodePosition(t, node);
}

void ControlHelper::GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    box.Init();
    if (!pblock_ || DisplayWeight(t, node) < kMinDisplayWeight) return;
    const Matrix3 worldToObject = Inverse(node ? node->GetObjectTM(t) : Matrix3());
    box = ShapeLocalBox(ReadShapeInputs(pblock_, t)) * (DisplayTM(t, node, vpt) * worldToObject);
    if (pblock_->GetInt(CH_OFFSET_LINE, t)) box += NodePosition(t, node) * worldToObject;
}

void ControlHelper::GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm, bool) {
    box.Init();
    if (!pblock_) return;
    box = ShapeLocalBox(ReadShapeInputs(pblock_, t));
    if (tm && !box.IsEmpty()) box = box * *tm;
}

void ControlHelper::SetGizmo(const Matrix3& g) {
    pblock_->SetValue(CH_GIZMO, 0, g);
}

// The tool's value acts in the axis system P: the gizmo is carried into it, changed
// there and carried back.
void ControlHelper::Move(TimeValue t, Matrix3& partm, Matrix3& tmAxis, Point3& val, bool) {
    if (!pblock_ || subObjLevel != kGizmoLevel) return;
    const Matrix3 axes = partm * Inverse(tmAxis);
    Matrix3 g = pblock_->GetMatrix3(CH_GIZMO, t) * axes;
    g.Translate(val);
    SetGizmo(g * Inverse(axes));
}

void ControlHelper::Rotate(TimeValue t, Matrix3& partm, Matrix3& tmAxis, Quat& val, bool) {
    if (!pblock_ || subObjLevel != kGizmoLevel) return;
    Matrix3 turn;
    val.MakeMatrix(turn);
    const Matrix3 g = pblock_->GetMatrix3(CH_GIZMO, t);
    // A camera-facing shape turns in its own plane.
    if (pblock_->GetInt(CH_FACE_CAMERA, t)) return SetGizmo(g * turn);
    const Matrix3 axes = partm * Inverse(tmAxis);
    SetGizmo(g * axes * turn * Inverse(axes));
}

void ControlHelper::Scale(TimeValue t, Matrix3& partm, Matrix3& tmAxis, Point3& val, bool) {
    if (!pblock_ || subObjLevel != kGizmoLevel) return;
    Matrix3 g = pblock_->GetMatrix3(CH_GIZMO, t);
    if (pblock_->GetInt(CH_FACE_CAMERA, t)) {
        g.PreScale(val);
        return SetGizmo(g);
    }
    const Matrix3 axes = partm * Inverse(tmAxis);
    g = g * axes;
    g.Scale(val, true);
    SetGizmo(g * Inverse(axes));
}

ISubObjType* ControlHelper::GetSubObjType(int i) {
    if (i == -1) i = subObjLevel - 1;
    if (i == 0) return &SubObjTypeNamed(IDS_GIZMO);
    if (i == 1) return &SubObjTypeNamed(IDS_SELECTOR_POLYGON);
    return nullptr;
}

void ControlHelper::ActivateSubobjSel(int level, XFormModes& modes) {
    subObjLevel = level;
    if (level == kGizmoLevel)
        modes = {gModes[kMoveMode].get(),   gModes[kRotateMode].get(), gModes[kScaleMode].get(),
                 gModes[kUScaleMode].get(), gModes[kSquashMode].get(), nullptr};
    else if (level == kSelectorLevel)
        modes = {nullptr, nullptr, nullptr, nullptr, nullptr, gModes[kSelectMode].get()};
    if (level != kSelectorLevel) pickMesh.Clear();
    pickMeshDirty = 1;
    RefreshRollups();
    NotifyDependents(FOREVER, kSubObjectParts, REFMSG_CHANGE);
}

bool ControlHelper::SelectorEditable() {
    return subObjLevel == kSelectorLevel && pblock_ && pblock_->GetInt(CH_SELECTOR_ACTIVE, 0);
}

void ControlHelper::SelectSubComponent(HitRecord* hitRec, bool selected, bool, bool invert) {
    if (!SelectorEditable()) return;
    if (theHold.Holding()) theHold.Put(new SelectorFSelRestore(this));
    if (hitRec) {
        const int face = int(hitRec->hitInfo);
        if (face >= faceSel.GetSize()) faceSel.SetSize(face + 1, 1);
        faceSel.Set(face, invert ? !faceSel[face] : selected);
    }
    RefreshSelection();
}

void ControlHelper::ClearSelection(int selLevel) {
    if (selLevel != kSelectorLevel || !SelectorEditable()) return;
    theHold.Put(new SelectorFSelRestore(this));
    faceSel.SetSize(0);
    RefreshSelection();
}

void ControlHelper::SelectAll(int selLevel) {
    if (selLevel != kSelectorLevel || !SelectorEditable()) return;
    theHold.Put(new SelectorFSelRestore(this));
    faceSel.SetSize(pickMesh.numf());
    faceSel.SetAll();
    RefreshSelection();
}

void ControlHelper::InvertSelection(int selLevel) {
    if (selLevel != kSelectorLevel || !SelectorEditable()) return;
    theHold.Put(new SelectorFSelRestore(this));
    faceSel.SetSize(pickMesh.numf(), 1);
    faceSel = ~faceSel;
    if (faceSel.IsEmpty()) faceSel.SetSize(0);
    RefreshSelection();
}

void ControlHelper::SetSelectorFaceSel(const BitArray& sel) {
    theHold.Begin();
    theHold.Put(new SelectorFSelRestore(this));
    faceSel = sel;
    RefreshSelection();
    theHold.Accept(WStr(GetString(IDS_SELECTOR_FACE_SELECTION)));
}

void ControlHelper::RefreshSelection() {
    selectorMeshDirty = 1;
    pickMesh.FaceSelect(faceSel);
    RefreshRollups();
    NotifyDependents(FOREVER, PART_TOPO | PART_GEOM, REFMSG_CHANGE);
}

void ControlHelper::RefreshRollups() {
    if (rollup) GetPanelService().RefreshRollup(rollup);
    if (selectorRollup) GetPanelService().RefreshRollup(selectorRollup);
}

void ControlHelper::GetSubObjectCenters(SubObjAxisCallback* cb, TimeValue t, INode* node,
                                        ModContext*) {
    if (!pblock_ || !node || subObjLevel != kGizmoLevel) return;
    // At the selector level the centre is that of the overlay's faces, which is not built.
    cb->Center((pblock_->GetMatrix3(CH_GIZMO, t) * node->GetObjectTM(t)).GetTrans(), 0);
}

void ControlHelper::GetSubObjectTMs(SubObjAxisCallback* cb, TimeValue t, INode* node, ModContext*) {
    if (!pblock_ || !node || subObjLevel != kGizmoLevel) return;
    cb->TM(DisplayTM(t, node, nullptr), 0);
}

void ControlHelper::ChangeType(int type) {
    if (!pblock_ || !ShapeEnumName(type) || type == pblock_->GetInt(CH_TYPE, 0)) return;
    theHold.Begin();
    pblock_->SetValue(CH_TYPE, 0, type);
    theHold.Accept(WStr(GetString(IDS_CONTROL_HELPER_CHANGE)));
}

void ControlHelper::ResetGizmo() {
    if (!pblock_) return;
    theHold.Begin();
    SetGizmo(Matrix3());
    theHold.Accept(WStr(GetString(IDS_RESET_GIZMO)));
}

RefResult ControlHelper::ForwardMessage(const Interval& changeInt, ReferenceTarget*, PartID& partID,
                                        RefMessage message, bool propagate) {
    return NotifyDependents(changeInt, partID, message, NOTIFY_ALL, propagate);
}

}  // namespace zorvanta
