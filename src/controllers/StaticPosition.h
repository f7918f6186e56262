#pragma once

#include "controllers/StaticControl.h"

namespace zorvanta {

// A position track that holds one point (parent space, world units): a relative read
// translates the matrix passed in, in its own space.
// It has no keys, references, sub-anims or parameter blocks.
class StaticPosition : public StaticControl<StaticPosition, host::Point3> {
public:
    explicit StaticPosition(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    static host::Point3 Initial();
    static host::Point3 Zero();
    static void ApplyRelative(const host::Point3& v, void* val);
    static host::Point3 AddRelative(const host::Point3& v, void* val);
    static void Apply(host::Point3& a, const host::Point3& b);
    static void Multiply(host::Point3& v, float f);
};

}  // namespace zorvanta
