#pragma once

#include "controllers/ControllerIds.h"
#include "frame/FrameIds.h"
#include "host/object/Control.h"
#include "host/object/ILockedTrack.h"
#include "host/object/IParamBlock2.h"

namespace zorvanta {

// A transform controller that turns its node towards the orientation of another node by
// a weight, while an inner transform controller (reference 1, a PRS when new) carries
// the node's own animation: its translation stays in the parent's space, its rotation
// and scale act inside the target's space. References: 0 the block "params" (target,
// weight, keep_initial_offset, initial_offset), 1 the inner controller.
class RotationSpace : public host::Control, public host::ILockedTrackImp {
public:
    explicit RotationSpace(bool loading = false);
    static constexpr host::Class_ID kClassId = ROTATION_SPACE_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_MATRIX3_CLASS_ID;
    // Defines the block "params" for the class's descriptor.
    static void DescribeBlocks(host::ClassDesc2* desc);

    host::Class_ID ClassID() override { return kClassId; }
    host::SClass_ID SuperClassID() override { return kSuperClassId; }
    host::WStr GetClassName() override;
    using host::Control::GetInterface;
    void* GetInterface(uint32_t id) override;

    int NumRefs() override { return 2; }
    host::ReferenceTarget* GetReference(int i) override;
    int NumSubs() override { return 2; }
    host::Animatable* SubAnim(int i) override { return GetReference(i); }
    host::WStr SubAnimName(int i) override;
    int NumParamBlocks() override { return 1; }
    host::IParamBlock2* GetParamBlock(int i) override { return i == 0 ? pblock : nullptr; }
    bool IsLeaf() override { return false; }

    // val: the parent's world transform in, the node's out.
    void GetValue(host::TimeValue t, void* val, host::Interval& valid,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // val: a SetXFormPacket, handed to the inner controller in the target's space. A
    // locked controller ignores it.
    void SetValue(host::TimeValue t, void* val, int commit = 1,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;

    // tm turned from its own orientation towards the target's (with the initial offset
    // when kept) by the weight at t; the result is kept as the space transform.
    void Space(host::TimeValue t, host::Matrix3& tm, host::Interval& valid);
    // The transform the last Space gave.
    const host::Matrix3& SpaceTM() const { return spaceTM; }

    // The locked flag; the block and the inner controller are references.
    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

protected:
    void SetReference(int i, host::ReferenceTarget* t) override;

private:
    friend class RotationSpaceAccessor;
    // A new target: the initial offset becomes the turn from it to the present space
    // transform, so the node doesn't jump. A target whose transform follows this
    // controller would feed on itself: it is refused and v keeps the present target.
    void TargetChanged(host::PB2Value& v, host::TimeValue t);
    // The node's world position moved by a rotation or scale about the packet's axis,
    // in the parent's space.
    host::Point3 PivotDisplacement(host::TimeValue t, const host::SetXFormPacket& packet);

    host::IParamBlock2* pblock = nullptr;
    host::Control* inner = nullptr;
    host::Matrix3 spaceTM;
    bool inSpace = false;  // a target reached again while its space is worked out is skipped
};

}  // namespace zorvanta
