#pragma once

#include "controllers/StaticControl.h"
#include "frame/FrameIds.h"

namespace zorvanta {

// A float track that holds one value: a relative read adds it to the float passed in.
// It has no keys, references, sub-anims or parameter blocks.
class StaticFloat : public StaticControl<StaticFloat, float> {
public:
    explicit StaticFloat(bool loading = false);
    static constexpr host::Class_ID kClassId = STATIC_FLOAT_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_FLOAT_CLASS_ID;
    static constexpr int kNameId = IDS_STATIC_FLOAT_CLASS;

    static float Initial();
    static float Zero();
    static void ApplyRelative(const float& v, void* val);
    static float AddRelative(const float& v, void* val);
    static void Apply(float& a, const float& b);
    static void Multiply(float& v, float f);
};

}  // namespace zorvanta
