#pragma once

#include "controllers/StaticControl.h"
#include "frame/FrameIds.h"

namespace zorvanta {

// A scale track that holds one ScaleValue: a relative read scales the matrix passed in,
// in its own space; a relative write multiplies the factors and composes the axes.
// It has no keys, references, sub-anims or parameter blocks.
class StaticScale : public StaticControl<StaticScale, host::ScaleValue> {
public:
    explicit StaticScale(bool loading = false);
    static constexpr host::Class_ID kClassId = STATIC_SCALE_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_SCALE_CLASS_ID;
    static constexpr int kNameId = IDS_STATIC_SCALE_CLASS;

    static host::ScaleValue Initial();
    static host::ScaleValue Zero();
    static void ApplyRelative(const host::ScaleValue& v, void* val);
    static host::ScaleValue AddRelative(const host::ScaleValue& v, void* val);
    static void Apply(host::ScaleValue& a, const host::ScaleValue& b);
    static void Multiply(host::ScaleValue& v, float f);
};

}  // namespace zorvanta
