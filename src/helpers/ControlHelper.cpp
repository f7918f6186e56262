#include "helpers/ControlHelper.h"

#include <cassert>

#include "frame/StringTable.h"
#include "helpers/ControlParamDefs.h"
#include "host/classes/ChunkIO.h"
#include "host/object/ClassDesc2.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/SubObject.h"
#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

namespace {

// The class's one block, defined for the descriptor that the first call passes.
ParamBlockDesc2& ControlHelperBlock(ClassDesc2* desc = nullptr) {
    static ParamBlockDesc2 block(0, L"params", P_AUTO_CONSTRUCT, 0, desc, ControlParamDefs());
    return block;
}

// The descriptor DescribeBlocks defined the block for: it runs before any instance.
ClassDesc2* DescribedClass() {
    ClassDesc2* desc = ControlHelperBlock().GetClassDesc();
    assert(desc && "ControlHelper::DescribeBlocks runs before any instance is made");
    return desc;
}

}  // namespace

void ControlHelper::DescribeBlocks(ClassDesc2* desc) {
    ControlHelperBlock(desc);
    desc->AddInterface(IControlHelper::Desc());
}

ControlHelper::ControlHelper(bool loading) : ControlObject(DescribedClass(), loading) {}

WStr ControlHelper::GetClassName() {
    return WStr(GetString(IDS_CONTROL_HELPER_CLASS));
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
    if (subObjLevel == kGizmoLevel) DrawGizmoMarker(gw, node->GetObjectTM(t));
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
    SetGizmoTM(Matrix3());
    theHold.Accept(WStr(GetString(IDS_RESET_GIZMO)));
}

}  // namespace zorvanta
