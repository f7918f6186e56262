#pragma once

#include "extra/WeakRefOwner.h"
#include "helpers/ControlGizmo.h"
#include "helpers/ControlSelector.h"
#include "helpers/HelperIds.h"
#include "host/object/BaseObject.h"

namespace zorvanta {

// What the control helper and the control shape do alike, whatever object family Base
// they belong to: publishing Published (an IControlHelper or IControlShape, which reads
// the block that ControlBlock names), the selector node as a weak parameter, the
// selector's face selection, the rollups and transform tools while edited, and the two
// sub-object levels. At the gizmo level the viewport's tools rewrite the gizmo at time
// 0 and never touch the node. Every operation checks the block first and does nothing
// without it.
template <class Base, class Published>
class ControlObject : public Base, public Published, public WeakRefOwner, public ControlSelector {
public:
    using enum ControlSubObjLevel;

    using Base::GetInterface;
    void* GetInterface(uint32_t id) override;
    host::FPInterface* GetInterface(host::Interface_ID id) override;
    // The object's blocks; the first holds the selector node.
    host::IParamBlock2* GetParamBlock(int i) override { return Base::GetParamBlock(i); }

    // Opens the parameter and selector rollups (nothing without a user interface) and
    // makes the gizmo's transform tools; EndEditParams takes them away.
    void BeginEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* prev) override;
    void EndEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* next) override;

    void Move(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
              bool localOrigin = false) override;
    void Rotate(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Quat& val,
                bool localOrigin = false) override;
    void Scale(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
               bool localOrigin = false) override;

    int NumSubObjTypes() override { return 2; }
    host::ISubObjType* GetSubObjType(int i) override;
    void ActivateSubobjSel(int level, host::XFormModes& modes) override;
    void SelectSubComponent(host::HitRecord* hitRec, bool selected, bool all,
                            bool invert = false) override;
    void ClearSelection(int selLevel) override;
    void SelectAll(int selLevel) override;
    void InvertSelection(int selLevel) override;
    // At the gizmo level, the gizmo's origin in world.
    void GetSubObjectCenters(host::SubObjAxisCallback* cb, host::TimeValue t, host::INode* node,
                             host::ModContext* mc) override;

    host::BitArray GetSelectorFaceSel() override { return faceSel; }
    void SetSelectorFaceSel(const host::BitArray& sel) override { ReplaceFaces(sel); }

    int NumWeakParams() override { return 1; }
    host::ParamID GetParamId(int) override { return CH_SELECTOR_NODE; }
    void* GetDialog(int) override { return selectorRollup; }
    host::RefResult ForwardMessage(const host::Interval& changeInt, host::ReferenceTarget* target,
                                   host::PartID& partID, host::RefMessage message,
                                   bool propagate) override;

    int SubObjectLevel() const { return subObjLevel; }

    host::IObjParam* ip = nullptr;
    void* rollup = nullptr;
    void* selectorRollup = nullptr;

protected:
    using Base::Base;

    void RefreshSelection() override;
    host::ReferenceTarget* SelectorOwner() override { return this; }
    void RefreshRollups();

    int subObjLevel = kObjectLevel;

private:
    // Level 2 with a block and the selector on: the guard of every selection call.
    bool SelectorEditable();
    bool FaceCamera(host::TimeValue t);
};

}  // namespace zorvanta
