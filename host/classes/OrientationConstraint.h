#pragma once

#include "host/classes/ReferenceList.h"
#include "host/object/Control.h"
#include "host/object/HostClassIds.h"
#include "host/object/INode.h"

namespace host {

// A rotation controller that turns its node as a weighted average of the world
// rotations of target nodes.
//
// The average: each target's world rotation (its node transform with scale taken out)
// is taken in the hemisphere of the first target's, the quaternions are summed with
// their weights and the sum is normalised. The result does not depend on the order of
// the targets, two equal weights give the Slerp midpoint, and only the ratios of the
// weights count. Targets and weights are references and floats, every change undoable;
// a deleted target node leaves the list.
//
// A relative read (inside a PRS the matrix holds the parent's world transform and the
// position) replaces the matrix's rotation with the average, keeping its position and
// scale, so that the node's world rotation is the average whatever its parent. An
// absolute read gives the average world rotation. Without targets, or with no weight,
// a relative read leaves the matrix as it is and an absolute one gives the identity.
// Writes change nothing: the targets decide the value.
class OrientationConstraint : public Control {
public:
    explicit OrientationConstraint(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return ORIENTATION_CONSTRAINT_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_ROTATION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Orientation Constraint"); }

    int GetNumTargets() const { return targets_.Count(); }
    INode* GetNode(int i) const { return static_cast<INode*>(targets_.Target(i)); }
    // 0 for an index outside the list.
    float GetTargetWeight(int i) const { return targets_.Valid(i) ? targets_.DataAt(i) : 0.0f; }
    bool SetTargetWeight(int i, float weight);
    // Refused (false) for a null node, a node already in the list, and a node whose
    // world transform depends on this controller (see TargetWouldLoop).
    bool AppendTarget(INode* node, float weight = 50.0f);
    bool DeleteTarget(int i);

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue, void*, int = 1, GetSetMethod = CTRL_ABSOLUTE) override {}

    int NumRefs() override { return targets_.Count(); }
    ReferenceTarget* GetReference(int i) override { return targets_.Target(i); }
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;

    // The weights; the targets are references. Loading sizes the list for them.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The same targets and weights; a target node cloned in the same operation becomes
    // its clone.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override {
        if (targets_.OwnsSlot(i)) targets_.SetSlot(i, dynamic_cast<INode*>(t));
    }

private:
    // The average world rotation at t, narrowing valid by the targets' transforms;
    // false when no target carries weight.
    bool Average(TimeValue t, Interval& valid, Quat& average);

    ReferenceList<float> targets_{this, 0};  // data: the weights
};

}  // namespace host
