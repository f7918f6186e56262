#pragma once

#include "controllers/StaticControl.h"
#include "frame/FrameIds.h"

namespace zorvanta {

// A transform track that holds one matrix (the node's local transform, parent space): a
// relative read turns the parent's transform passed in into value * parent. Writes take
// a SetXFormPacket whatever the method.
// It has no keys, references, sub-anims or parameter blocks.
class StaticTransform : public StaticControl<StaticTransform, host::Matrix3> {
public:
    explicit StaticTransform(bool loading = false);
    static constexpr host::Class_ID kClassId = STATIC_TRANSFORM_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_MATRIX3_CLASS_ID;
    static constexpr int kNameId = IDS_STATIC_TRANSFORM_CLASS;

    // The packet's move, rotation, scale or set, applied to the value; the method is
    // ignored.
    void SetValueLocalTime(TimeValue t, void* val, int commit = 1,
                           GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // The rows from the file; the identity flags are worked out again.
    static host::IOResult ReadValue(host::ILoad* iload, host::Matrix3& m);

    static host::Matrix3 Initial();
    static host::Matrix3 Zero();
    static void ApplyRelative(const host::Matrix3& v, void* val);
    static host::Matrix3 AddRelative(const host::Matrix3& v, void* val);
    static void Apply(host::Matrix3& a, const host::Matrix3& b);
    static void Multiply(host::Matrix3& v, float f);
};

}  // namespace zorvanta
