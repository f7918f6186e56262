#pragma once

#include "controllers/StaticControl.h"
#include "frame/FrameIds.h"

namespace zorvanta {

// A rotation track that holds one quaternion: a relative read rotates the matrix passed
// in, in its own space; a relative write composes an AngAxis after the value.
// It has no keys, references, sub-anims or parameter blocks.
class StaticRotation : public StaticControl<StaticRotation, host::Quat> {
public:
    explicit StaticRotation(bool loading = false);
    static constexpr host::Class_ID kClassId = STATIC_ROTATION_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_ROTATION_CLASS_ID;
    static constexpr int kNameId = IDS_STATIC_ROTATION_CLASS;

    static host::Quat Initial();
    static host::Quat Zero();
    static void ApplyRelative(const host::Quat& v, void* val);
    static host::Quat AddRelative(const host::Quat& v, void* val);
    static void Apply(host::Quat& a, const host::Quat& b);
    static void Multiply(host::Quat& v, float f);
};

}  // namespace zorvanta
