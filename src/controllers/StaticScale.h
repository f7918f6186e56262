#pragma once

#include "controllers/StaticControl.h"

namespace zorvanta {

// A scale track that holds one ScaleValue: a relative read scales the matrix passed in,
// in its own space; a relative write multiplies the factors and composes the axes.
// It has no keys, references, sub-anims or parameter blocks.
class StaticScale : public StaticControl<StaticScale, host::ScaleValue> {
public:
    explicit StaticScale(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    static host::ScaleValue Initial();
    static host::ScaleValue Zero();
    static void ApplyRelative(const host::ScaleValue& v, void* val);
    static host::ScaleValue AddRelative(const host::ScaleValue& v, void* val);
    static void Apply(host::ScaleValue& a, const host::ScaleValue& b);
    static void Multiply(host::ScaleValue& v, float f);
};

}  // namespace zorvanta
