#pragma once

#include "host/object/StdControl.h"

namespace zorvanta {

// A float track of held values over an inner bezier float (its one reference): between
// keys it reads the value of the key before, and before the first key the first key's.
// Every key operation is the inner controller's; with no inner controller they answer
// nothing.
class StepFloat : public host::StdControl {
public:
    // A new track makes its inner bezier float; one made for loading or cloning gets it
    // from the reader or the clone.
    explicit StepFloat(bool loading = false);
    host::Class_ID ClassID() override;
    host::SClass_ID SuperClassID() override;
    host::WStr GetClassName() override;

    // The inner controller, or null.
    host::Control* GetInner() { return inner_; }

    // The inner track sampled at the key at or before t (the first key before all keys),
    // valid from that key to one tick before the next.
    void GetValueLocalTime(host::TimeValue t, void* val, host::Interval& valid,
                           host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // Writes the inner track at t; a relative write adds the held value at t first.
    void SetValueLocalTime(host::TimeValue t, void* val, int commit = 1,
                           host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    void* CreateTempValue() override { return new float(0.0f); }
    void DeleteTempValue(void* val) override { delete static_cast<float*>(val); }
    void ApplyValue(void* val, void* delta) override {
        *static_cast<float*>(val) += *static_cast<float*>(delta);
    }
    void MultiplyValue(void* val, float m) override { *static_cast<float*>(val) *= m; }
    // Relative repeat steps the value by whole cycles of the range; the other types
    // hold the value read at t.
    void Extrapolate(host::Interval range, host::TimeValue t, void* val, host::Interval& valid,
                     int type) override;

    int NumKeys() override;
    host::TimeValue GetKeyTime(int i) override;
    int GetKeyIndex(host::TimeValue t) override;
    void AddNewKey(host::TimeValue t, uint32_t flags) override;
    bool IsKeyAtTime(host::TimeValue t, uint32_t flags) override;
    void DeleteKeyAtTime(host::TimeValue t) override;
    void DeleteKeys(uint32_t flags) override;
    void GetKeyTimes(host::Tab<host::TimeValue>& times, host::Interval range,
                     uint32_t flags) override;
    void SelectKeys(host::Interval range, bool select) override;
    bool IsKeySelected(int i) override;
    void MoveKeys(host::TimeValue delta, bool selectedOnly) override;
    bool IsKeyable() override;
    host::Interval GetTimeRange() override;
    int GetORT(int side) override;
    void SetORT(int type, int side) override;
    void Copy(host::Control* from) override;
    using host::StdControl::GetInterface;
    // The inner controller's interfaces: its keys, ease and locked track.
    void* GetInterface(uint32_t id) override;

    int NumRefs() override { return 1; }
    host::ReferenceTarget* GetReference(int i) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

protected:
    void SetReference(int i, host::ReferenceTarget* target) override;

private:
    // The time whose inner value holds at t, and the span it holds over.
    host::TimeValue SampleTime(host::TimeValue t, host::Interval& span);

    host::Control* inner_ = nullptr;
};

}  // namespace zorvanta
