#pragma once

#include "controllers/StaticControl.h"

namespace zorvanta {

// A float track that holds one value: a relative read adds it to the float passed in.
// It has no keys, references, sub-anims or parameter blocks.
class StaticFloat : public StaticControl<StaticFloat, float> {
public:
    explicit StaticFloat(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    static float Initial();
    static float Zero();
    static void ApplyRelative(const float& v, void* val);
    static float AddRelative(const float& v, void* val);
    static void Apply(float& a, const float& b);
    static void Multiply(float& v, float f);
};

}  // namespace zorvanta
