#pragma once

#include <optional>
#include <vector>

#include "host/classes/IKeyControl.h"
#include "host/object/Control.h"
#include "host/object/HostClassIds.h"

namespace host {

// The host's keyframed float track, the default float controller. Between two keys it
// is a cubic bezier in (time, value) whose inner control points lie along the keys'
// tangents at the keys' lengths; a step tangent on either side holds the value. Keys
// with automatic tangent types get their tangents recomputed whenever keys change:
//   smooth  the slope between the neighbouring keys (one-sided at the ends)
//   linear  the slope of the segment on that side
//   fast    twice the linear slope;  slow  half the linear slope
//   flat    zero;  step  holds;  custom  as set
// Without keys it holds one value. Every edit is undoable, one record per hold.
class BezierFloat : public Control, public IKeyControl {
public:
    // A new bezier float has no keys and the value 0; loading makes no difference.
    explicit BezierFloat(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_FLOAT_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_FLOAT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Float"); }
    using Control::GetInterface;
    void* GetInterface(uint32_t id) override;

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    // Animating: sets the key at t, or makes one. Otherwise: without keys the held
    // value changes; with a key at t that key; else every key moves by the change.
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    // With commit 0 a SetValue is tentative until CommitValue keeps it or RestoreValue
    // puts back the state from before the first tentative change.
    void CommitValue(TimeValue) override { tentative_.reset(); }
    void RestoreValue(TimeValue) override;
    float Evaluate(TimeValue t) const;

    int NumKeys() override { return int(keys_.size()); }
    TimeValue GetKeyTime(int i) override;
    int GetKeyIndex(TimeValue t) override;
    void AddNewKey(TimeValue t, uint32_t flags) override;
    bool IsKeyAtTime(TimeValue t, uint32_t) override { return GetKeyIndex(t) >= 0; }
    void DeleteKeyAtTime(TimeValue t) override;
    // TRACK_DOALL deletes every key, otherwise the selected ones.
    void DeleteKeys(uint32_t flags) override;
    void GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t flags) override;
    void SelectKeys(Interval range, bool select) override;
    bool IsKeySelected(int i) override;
    // Moves the selected keys (every key with selectedOnly false) by dt ticks.
    void MoveKeys(TimeValue dt, bool selectedOnly) override;
    bool IsKeyable() override { return true; }
    Interval GetTimeRange() override;
    int GetORT(int side) override { return side == ORT_BEFORE ? ortBefore_ : ortAfter_; }
    // Constant, cycle, loop, oscillate, linear and relative repeat; others are refused.
    void SetORT(int type, int side) override;

    int GetNumKeys() override { return NumKeys(); }
    void SetNumKeys(int n) override;
    void GetKey(int i, IKey* key) override;
    void SetKey(int i, IKey* key) override;
    int AppendKey(IKey* key) override;
    void SortKeys() override;

private:
    class KeysRestore;
    struct State {
        std::vector<IBezFloatKey> keys;
        float value = 0.0f;  // held without keys
        int ortBefore = ORT_CONSTANT, ortAfter = ORT_CONSTANT;
    };

    // Every edit: record the state once per hold, change, recompute tangents, notify.
    template <typename Edit>
    void Change(Edit edit);
    State Save() const { return {keys_, value_, ortBefore_, ortAfter_}; }
    void Load(const State& s);
    void UpdateTangents();
    // Recomputes the evaluation tables from the keys.
    void UpdateSegments();
    void InsertKey(TimeValue t, float v, uint32_t flags);
    template <typename Pred>
    void Erase(Pred doomed);
    void SortKeysInPlace();
    float EvaluateInRange(TimeValue t) const;
    float SegmentValue(size_t k, TimeValue t) const;
    TimeValue MapOutOfRange(TimeValue t, float& offset) const;

    // A segment whose handles sit at a third of its duration is a cubic polynomial in
    // the fraction of its duration: playback reads it through these coefficients, with
    // the key times in an array of their own for the search. Other segments (stepped,
    // custom lengths, no duration) read the keys.
    struct Cubic {
        float invDuration = 0.0f;  // 0: read the keys
        float c[4] = {};
    };

    std::vector<IBezFloatKey> keys_;
    std::vector<TimeValue> times_;
    std::vector<Cubic> cubics_;
    std::optional<State> tentative_;  // the state before uncommitted changes
    float value_ = 0.0f;
    int ortBefore_ = ORT_CONSTANT, ortAfter_ = ORT_CONSTANT;
};

}  // namespace host
