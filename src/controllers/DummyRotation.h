#pragma once

#include "host/object/Control.h"

namespace zorvanta {

// A rotation track that holds one quaternion for a rig control's gimbal proxy. While
// relative (the start), a relative read rotates the matrix passed in, in its own space;
// otherwise the read replaces the matrix by the rotation. Nothing of it is saved.
class DummyRotation : public host::Control {
public:
    explicit DummyRotation(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    bool GetRelative() const { return relative_; }
    void SetRelative(bool on) { relative_ = on; }

    void GetValue(host::TimeValue t, void* val, host::Interval& valid,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // Absolute: a Quat stored; relative: an AngAxis composed after the rotation.
    void SetValue(host::TimeValue t, void* val, int commit = 1,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // The same rotation and flag.
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

private:
    host::Quat value_;
    bool relative_ = true;
};

}  // namespace zorvanta
