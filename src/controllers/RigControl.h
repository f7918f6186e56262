#pragma once

#include "controllers/IRigControl.h"
#include "host/classes/CompoundControl.h"
#include "host/object/ILockedTrack.h"
#include "host/object/IParamBlock2.h"
#include "host/object/TimeChangeCallback.h"

namespace host {
class ClassDesc2;
class ParamBlockDesc2;
}  // namespace host

namespace zorvanta {

// The transform controller of every rig control. The node's transform is made from a
// position, a rotation (a RotationXYZ) and a scale sub-controller as usual, but with a
// stored offset transform, offsetTM, between the parent and them: the bind pose lives in
// the offset, so every animation value is zero at the bind pose. offsetTM is a constant,
// read and written at time 0 only.
//
// Figure mode (rig-wide) drives the node by the offset alone and turns transforms into
// offset edits; straight scale keeps an inherited non-uniform scale from shearing the
// control; offset edits can carry over to the mirror partner, and a selected mirrored
// pair moved in local space gives the "r_" control the mirrored delta. In the gimbal
// coordinate system the transform tools get a proxy rotation controller whose rings are
// the real Euler axes.
class RigControl : public host::CompoundControl,
                   public IRigControl,
                   public host::ILockedTrackImp,
                   public host::TimeChangeCallback {
public:
    // References and sub-anims.
    enum Slot { kParams = 0, kPosition = 1, kRotation = 2, kScale = 3, kSlots = 4 };
    // The block's parameter ids.
    enum Param : host::ParamID {
        kFigureMode = 0,
        kOffsetTM = 1,
        kIndependentOffset = 2,
        kStraightScale = 3,
        kConnectMirrorOffset = 12,
    };

    static constexpr host::Class_ID kClassId = RIG_CONTROL_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_MATRIX3_CLASS_ID;

    // loading: a bare object (no block, no sub-controllers), filled by a reader or clone.
    explicit RigControl(bool loading = false);
    ~RigControl() override;
    // Gives the class's descriptor the block definition and the published interface.
    static void DescribeBlocks(host::ClassDesc2* desc);

    host::Class_ID ClassID() override { return kClassId; }
    host::SClass_ID SuperClassID() override { return kSuperClassId; }
    host::WStr GetClassName() override;
    using host::CompoundControl::GetInterface;
    void* GetInterface(uint32_t id) override;
    host::FPInterface* GetInterface(host::Interface_ID id) override;

    int NumRefs() override { return kSlots; }
    host::ReferenceTarget* GetReference(int i) override;
    int NumSubs() override { return kSlots; }
    host::Animatable* SubAnim(int i) override { return GetReference(i); }
    host::WStr SubAnimName(int i) override;
    bool CanAssignController(int i) override { return i >= kPosition && i <= kScale; }
    bool AssignController(host::Animatable* c, int i) override;
    int NumParamBlocks() override { return 1; }
    host::IParamBlock2* GetParamBlock(int i) override { return i == 0 ? pblock_ : nullptr; }

    host::Control* GetPositionController() override { return subs_[0]; }
    // The real rotation controller, or in the gimbal system the proxy (null in figure
    // mode, so that no rotation gizmo shows).
    host::Control* GetRotationController() override;
    host::Control* GetScaleController() override { return subs_[2]; }
    // The rotation sub-controller, whatever the coordinate system.
    host::Control* RealRotationController() { return subs_[1]; }
    bool SetPositionController(host::Control* c) override { return AssignController(c, kPosition); }
    bool SetRotationController(host::Control* c) override { return AssignController(c, kRotation); }
    bool SetScaleController(host::Control* c) override { return AssignController(c, kScale); }

    // val: the parent's world transform in, the node's out. Always relative.
    void GetValue(host::TimeValue t, void* val, host::Interval& valid,
                  host::GetSetMethod method = host::CTRL_RELATIVE) override;
    // val: a SetXFormPacket. A locked track ignores it.
    void SetValue(host::TimeValue t, void* val, int commit = 1,
                  host::GetSetMethod method = host::CTRL_RELATIVE) override;
    // Takes from's transform at the current time into the three sub-controllers.
    void Copy(host::Control* from) override;
    bool ChangeParents(host::TimeValue t, const host::Matrix3& oldP, const host::Matrix3& newP,
                       const host::Matrix3& tm) override;
    // "FIGURE MODE ON" at the foot of the view while the selected node is in figure mode.
    int Display(host::TimeValue t, host::INode* node, host::ViewExp* vpt, int flags) override;

    void BeginEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* prev) override;
    void EndEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* next) override;
    void TimeChanged(host::TimeValue t) override;
    host::RefResult NotifyRefChanged(const host::Interval& changeInt, host::ReferenceTarget* target,
                                     host::PartID& partID, host::RefMessage message,
                                     bool propagate) override;

    host::ReferenceTarget* Clone(host::RemapDir& remap) override;
    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;

    // IRigControl.
    host::Point3 GetOffsetPos() override;
    void SetOffsetPos(const host::Point3& p) override;
    host::Quat GetOffsetRot() override;
    void SetOffsetRot(const host::Quat& q) override;
    host::Point3 GetOffsetScale() override;
    void SetOffsetScale(const host::Point3& s) override;
    host::Matrix3 GetOffsetTM() override;
    // Writes the offset, carrying the change to the mirror partner even when it is
    // selected.
    void SetOffsetTM(const host::Matrix3& m) override;
    bool GetFigureMode() override;
    // Sets figure mode on every rig control of this control's rig.
    void SetFigureMode(bool on) override;

    // Whether a selected mirrored pair moved in local space mirrors (on at start; the
    // IKFK matching turns it off while it runs).
    static bool GetMirrorEnabled();
    static void SetMirrorEnabled(bool on);
    // Which sub-controller's parameters the motion panel shows: 0 position, 1 rotation,
    // 2 scale; shared by every rig control.
    static int GetSubPanel();
    static void SetSubPanel(int which);

protected:
    void SetReference(int i, host::ReferenceTarget* target) override;
    int NumTracks() override { return 3; }
    host::Control* Track(int i) override { return subs_[i]; }

private:
    struct Offset;
    struct Mirror;
    class EditState;

    // The block's settings and the offset's parts, read once after each change.
    const Offset& CurrentOffset();
    Mirror MirrorTest(host::TimeValue t);
    // Writes offset, carrying the change to the mirror partner; with check on, not when
    // the partner is selected (it gets the same edit itself).
    void PutOffset(const host::Matrix3& offset, bool check);
    void WriteOffset(const host::Matrix3& offset);

    void Move(host::TimeValue t, host::SetXFormPacket& packet, const Offset& off, const Mirror& m,
              int commit);
    void Turn(host::TimeValue t, host::SetXFormPacket& packet, const Offset& off, const Mirror& m,
              int commit);
    void Resize(host::TimeValue t, host::SetXFormPacket& packet, const Offset& off, int commit);
    void Place(host::TimeValue t, host::SetXFormPacket& packet, const Offset& off, int commit);
    // tmParent with the offset applied before the sub-controllers: its position, or the
    // whole offset without independent offset.
    static void PrepareParent(host::Matrix3& tmParent, const Offset& off);
    void RefreshRollups(bool offsetOnly);

    host::IParamBlock2* pblock_ = nullptr;
    host::Control* subs_[3] = {nullptr, nullptr, nullptr};
    Offset* offset_;             // the cache of CurrentOffset
    EditState* edit_ = nullptr;  // while the motion panel edits this control
};

}  // namespace zorvanta
