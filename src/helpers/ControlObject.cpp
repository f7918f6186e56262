#include "helpers/ControlObject.h"

#include "extra/ExtraIds.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "helpers/IControlHelper.h"
#include "helpers/IControlShape.h"
#include "host/classes/BlockObject.h"
#include "host/classes/SimpleSpline.h"
#include "host/object/HelperObject.h"
#include "host/object/INode.h"
#include "host/object/PanelService.h"

namespace zorvanta {

using namespace host;

namespace {

// The parts that a change of level concerns: the display, the selection and the
// sub-object state.
constexpr PartID kSubObjectParts = 0x70;

}  // namespace

template <class Base, class Published>
void* ControlObject<Base, Published>::GetInterface(uint32_t id) {
    if (id == WEAK_REF_OWNER_INTERFACE) return static_cast<WeakRefOwner*>(this);
    return Base::GetInterface(id);
}

template <class Base, class Published>
FPInterface* ControlObject<Base, Published>::GetInterface(Interface_ID id) {
    if (id == Published::Desc()->GetID()) return static_cast<Published*>(this);
    return Base::GetInterface(id);
}

template <class Base, class Published>
void ControlObject<Base, Published>::BeginEditParams(IObjParam* editIp, uint32_t, Animatable*) {
    if (!this->ControlBlock()) return;
    ip = editIp;
    rollup = GetPanelService().AddRollup(this, this->ClassID(), WStr(GetString(IDS_PARAMETERS)));
    selectorRollup =
        GetPanelService().AddRollup(this, this->ClassID(), WStr(GetString(IDS_SELECTOR)));
    MakeControlModes();
}

template <class Base, class Published>
void ControlObject<Base, Published>::EndEditParams(IObjParam*, uint32_t, Animatable*) {
    if (rollup) GetPanelService().DeleteRollup(rollup);
    if (selectorRollup) GetPanelService().DeleteRollup(selectorRollup);
    rollup = selectorRollup = nullptr;
    ip = nullptr;
    DropControlModes();
}

template <class Base, class Published>
bool ControlObject<Base, Published>::FaceCamera(TimeValue t) {
    return this->ControlBlock()->GetInt(CH_FACE_CAMERA, t) != 0;
}

template <class Base, class Published>
void ControlObject<Base, Published>::Move(TimeValue t, Matrix3& partm, Matrix3& tmAxis, Point3& val,
                                          bool) {
    IParamBlock2* pb = this->ControlBlock();
    if (!pb || subObjLevel != kGizmoLevel) return;
    this->SetGizmoTM(MovedGizmo(pb->GetMatrix3(CH_GIZMO, t), partm, tmAxis, val));
}

template <class Base, class Published>
void ControlObject<Base, Published>::Rotate(TimeValue t, Matrix3& partm, Matrix3& tmAxis, Quat& val,
                                            bool) {
    IParamBlock2* pb = this->ControlBlock();
    if (!pb || subObjLevel != kGizmoLevel) return;
    this->SetGizmoTM(RotatedGizmo(pb->GetMatrix3(CH_GIZMO, t), partm, tmAxis, val, FaceCamera(t)));
}

template <class Base, class Published>
void ControlObject<Base, Published>::Scale(TimeValue t, Matrix3& partm, Matrix3& tmAxis,
                                           Point3& val, bool) {
    IParamBlock2* pb = this->ControlBlock();
    if (!pb || subObjLevel != kGizmoLevel) return;
    this->SetGizmoTM(ScaledGizmo(pb->GetMatrix3(CH_GIZMO, t), partm, tmAxis, val, FaceCamera(t)));
}

template <class Base, class Published>
ISubObjType* ControlObject<Base, Published>::GetSubObjType(int i) {
    return ControlSubObjType(i == -1 ? subObjLevel - 1 : i);
}

template <class Base, class Published>
void ControlObject<Base, Published>::ActivateSubobjSel(int level, XFormModes& modes) {
    subObjLevel = level;
    if (level == kGizmoLevel || level == kSelectorLevel) modes = ControlLevelModes(level);
    if (level != kSelectorLevel) pickMesh.Clear();
    pickMeshDirty = 1;
    RefreshRollups();
    this->NotifyDependents(FOREVER, kSubObjectParts, REFMSG_CHANGE);
}

template <class Base, class Published>
bool ControlObject<Base, Published>::SelectorEditable() {
    IParamBlock2* pb = this->ControlBlock();
    return subObjLevel == kSelectorLevel && pb && pb->GetInt(CH_SELECTOR_ACTIVE, 0);
}

template <class Base, class Published>
void ControlObject<Base, Published>::SelectSubComponent(HitRecord* hitRec, bool selected, bool,
                                                        bool invert) {
    if (SelectorEditable()) PickFace(hitRec, selected, invert);
}

template <class Base, class Published>
void ControlObject<Base, Published>::ClearSelection(int selLevel) {
    if (selLevel == kSelectorLevel && SelectorEditable()) ClearFaces();
}

template <class Base, class Published>
void ControlObject<Base, Published>::SelectAll(int selLevel) {
    if (selLevel == kSelectorLevel && SelectorEditable()) SelectAllFaces();
}

template <class Base, class Published>
void ControlObject<Base, Published>::InvertSelection(int selLevel) {
    if (selLevel == kSelectorLevel && SelectorEditable()) InvertFaces();
}

template <class Base, class Published>
void ControlObject<Base, Published>::RefreshSelection() {
    selectorMeshDirty = 1;
    pickMesh.FaceSelect(faceSel);
    RefreshRollups();
    this->NotifyDependents(FOREVER, PART_TOPO | PART_GEOM, REFMSG_CHANGE);
}

template <class Base, class Published>
void ControlObject<Base, Published>::RefreshRollups() {
    if (rollup) GetPanelService().RefreshRollup(rollup);
    if (selectorRollup) GetPanelService().RefreshRollup(selectorRollup);
}

template <class Base, class Published>
void ControlObject<Base, Published>::GetSubObjectCenters(SubObjAxisCallback* cb, TimeValue t,
                                                         INode* node, ModContext*) {
    IParamBlock2* pb = this->ControlBlock();
    if (!pb || !node || subObjLevel != kGizmoLevel) return;
    // At the selector level the centre is that of the overlay's faces, which is not built.
    cb->Center((pb->GetMatrix3(CH_GIZMO, t) * node->GetObjectTM(t)).GetTrans(), 0);
}

template <class Base, class Published>
RefResult ControlObject<Base, Published>::ForwardMessage(const Interval& changeInt,
                                                         ReferenceTarget*, PartID& partID,
                                                         RefMessage message, bool propagate) {
    return this->NotifyDependents(changeInt, partID, message, NOTIFY_ALL, propagate);
}

// The two control objects.
template class ControlObject<BlockObject<HelperObject>, IControlHelper>;
template class ControlObject<SimpleSpline, IControlShape>;

}  // namespace zorvanta
