#pragma once

#include "host/classes/CompoundControl.h"
#include "host/classes/PRSReadPlan.h"
#include "host/object/HostClassIds.h"

namespace host {

// The default transform controller: a position, a rotation and a scale controller
// (references and sub-anims 0, 1 and 2). Its local transform is scale, then rotation,
// then position; a relative read turns the parent's world transform into the node's.
// Writes come as SetXFormPackets: XFORM_SET places the node at a world transform, and
// XFORM_MOVE, XFORM_ROTATE and XFORM_SCALE apply increments given in world space
// about the packet's axis system, changing only the tracks they concern.
class PRS : public CompoundControl {
public:
    explicit PRS(bool loading = false);
    Class_ID ClassID() override { return PRS_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_MATRIX3_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Position/Rotation/Scale"); }

    int NumRefs() override { return 3; }
    ReferenceTarget* GetReference(int i) override { return subs_[i]; }
    int NumSubs() override { return 3; }
    Animatable* SubAnim(int i) override { return subs_[i]; }
    WStr SubAnimName(int i) override;
    bool CanAssignController(int i) override { return i >= 0 && i < 3; }
    bool AssignController(Animatable* c, int i) override;

    Control* GetPositionController() override { return subs_[0]; }
    Control* GetRotationController() override { return subs_[1]; }
    Control* GetScaleController() override { return subs_[2]; }
    bool SetPositionController(Control* c) override { return AssignController(c, 0); }
    bool SetRotationController(Control* c) override { return AssignController(c, 1); }
    bool SetScaleController(Control* c) override { return AssignController(c, 2); }
    // The three sub-controllers cloned.
    ReferenceTarget* Clone(RemapDir& remap) override;

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override;
    int NumTracks() override { return 3; }
    Control* Track(int i) override { return subs_[i]; }

private:
    // GetValue through the parts' own virtual reads, whatever their classes; kept out of
    // GetValue so that a read through the plan does not pay for its frame.
    [[gnu::noinline]] void ApplyParts(TimeValue t, Matrix3& tm, Interval& valid);
    // The node's world transform at t for the parent's world transform.
    Matrix3 World(TimeValue t, const Matrix3& parent);
    void Place(TimeValue t, const SetXFormPacket& packet, int commit);
    void Move(TimeValue t, const SetXFormPacket& packet, int commit);
    void Turn(TimeValue t, const SetXFormPacket& packet, int commit);
    void Resize(TimeValue t, const SetXFormPacket& packet, int commit);
    // Sets the position so that the node's world origin is at world, in parent space.
    void PutWorldPosition(TimeValue t, const Point3& world, const Matrix3& parent, int commit);

    Control* subs_[3] = {nullptr, nullptr, nullptr};
    // How the parts are read when they are the default controllers.
    PRSReadPlan plan_;
};

}  // namespace host
