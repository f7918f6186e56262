#pragma once

#include "host/object/Control.h"

namespace zorvanta {

// A float track that shows another float track with an offset added: a part of a
// rig control's gimbal proxy. The inner track is a plain pointer, not a reference: its
// owner keeps it alive while the proxy exists. Nothing of it is saved.
class DummyFloat : public host::Control {
public:
    explicit DummyFloat(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    host::Control* GetInner() const { return inner_; }
    void SetInner(host::Control* inner) { inner_ = inner; }
    float GetOffset() const { return offset_; }
    void SetOffset(float offset) { offset_ = offset; }

    // The inner track's value (when there is one) plus the offset, added to what val held
    // for a relative read and, without an inner track, for an absolute one too.
    void GetValue(host::TimeValue t, void* val, host::Interval& valid,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // An absolute value less the offset, or a relative one unchanged, to the inner track.
    void SetValue(host::TimeValue t, void* val, int commit = 1,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // The same inner track and offset.
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

private:
    host::Control* inner_ = nullptr;
    float offset_ = 0.0f;
};

}  // namespace zorvanta
