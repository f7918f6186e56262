#pragma once

#include "host/classes/CompoundControl.h"
#include "host/classes/ReferenceList.h"
#include "host/object/HostClassIds.h"
#include "host/object/INode.h"

namespace host {

// A transform controller that switches its node's parent over time. Its links are
// (target, start time) pairs, kept sorted by time with one link per time; a link's
// target is a node, or null for the world. At t the link with the latest start time
// not after t is active: the node's world transform is the sub-controller's local
// transform (a PRS, reference 0) times the active target's world transform (the
// identity for the world), whatever the node's real parent. Before the first link the
// node follows its own parent, as under a plain PRS.
//
// Times are in ticks. Adding a link at t keeps the node's world transform at t: the
// sub-controller is set at t to the same world transform in the new target's space
// through an ordinary write, so with animate mode on it gets keys at t, and without it
// a keyless sub-controller changes at every time (and a keyed one moves all its keys;
// see KeyframeControl::WriteValue). The node is the one this is the transform
// controller of; elsewhere its parent counts as the identity. Deleting a link or moving
// its time changes only the list. Writes (SetXFormPackets) reach the sub-controller in
// the active link's space.
//
// References: 0 the sub-controller, 1 on the link targets. Sub-anim 0 is the
// sub-controller. Every change is undoable; a deleted target node's links go.
class LinkControl : public CompoundControl {
public:
    explicit LinkControl(bool loading = false);
    Class_ID ClassID() override { return LINK_CONTROL_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_MATRIX3_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Link Control"); }

    int GetNumTargets() const { return links_.Count(); }
    // The target of link i; null for a world link or an index outside the list.
    INode* GetNode(int i) const { return static_cast<INode*>(links_.Target(i)); }
    // Link i's start time in ticks; 0 for an index outside the list.
    TimeValue GetFrame(int i) const { return links_.Valid(i) ? links_.DataAt(i) : 0; }
    // Links to node from t on, replacing a link that starts at t. Refused (false) for a
    // null node (see AddWorld) and for a node whose world transform depends on this
    // controller (see TargetWouldLoop).
    bool AddTarget(INode* node, TimeValue t);
    // Links to the world from t on.
    bool AddWorld(TimeValue t);
    bool DeleteTarget(int i);
    // Moves link i to start at t; refused when another link starts at t.
    bool SetFrame(int i, TimeValue t);
    // The index of the link active at t, or -1 before the first one.
    int ActiveLink(TimeValue t) const;

    // Relative only: val holds the parent's world transform and receives the node's.
    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_RELATIVE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_RELATIVE) override;
    void CommitValue(TimeValue t) override {
        if (sub_) sub_->CommitValue(t);
    }
    void RestoreValue(TimeValue t) override {
        if (sub_) sub_->RestoreValue(t);
    }

    int NumRefs() override { return 1 + links_.Count(); }
    ReferenceTarget* GetReference(int i) override;
    int NumSubs() override { return 1; }
    Animatable* SubAnim(int i) override { return i == 0 ? sub_ : nullptr; }
    WStr SubAnimName(int i) override { return WStr(i == 0 ? L"Transform" : L""); }
    bool CanAssignController(int i) override { return i == 0; }
    // Takes a matrix controller as the sub-controller.
    bool AssignController(Animatable* c, int i) override;
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;

    Control* GetPositionController() override;
    Control* GetRotationController() override;
    Control* GetScaleController() override;
    bool SetPositionController(Control* c) override;
    bool SetRotationController(Control* c) override;
    bool SetScaleController(Control* c) override;

    // The links' start times; the sub-controller and the targets are references.
    // Loading sizes the links for them and refuses times out of order.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The sub-controller cloned, the links' times and targets kept (a target node cloned
    // in the same operation becomes its clone).
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override;
    int NumTracks() override { return 1; }
    Control* Track(int) override { return sub_; }

private:
    // Makes target (null: the world) the link from t on, keeping the world transform.
    void Link(INode* target, TimeValue t);
    // The world transform the sub-controller's local one is taken in at t: the active
    // target's, or parent before the first link. Narrows valid to the active link's span.
    Matrix3 LinkFrame(TimeValue t, const Matrix3& parent, Interval& valid);
    // Where a link starting at t goes in the sorted list, and whether one starts there.
    int SlotFor(TimeValue t, bool& taken) const;

    Control* sub_ = nullptr;
    ReferenceList<TimeValue> links_{this, 1};  // data: the start times
};

}  // namespace host
