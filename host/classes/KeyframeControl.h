#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/IKeyControl.h"
#include "host/classes/TrackEdits.h"
#include "host/object/Animate.h"
#include "host/object/Control.h"
#include "host/object/Hold.h"
#include "host/object/RemapDir.h"

namespace host {

// Value arithmetic of keyframed tracks: shifting a curve and repeating it relatively.
// A value type without + - * supplies these overloads beside its controller.
inline float KeyAdd(float a, float b) {
    return a + b;
}
inline float KeySub(float a, float b) {
    return a - b;
}
inline float KeyScale(float a, float f) {
    return a * f;
}
inline Point3 KeyAdd(const Point3& a, const Point3& b) {
    return a + b;
}
inline Point3 KeySub(const Point3& a, const Point3& b) {
    return a - b;
}
inline Point3 KeyScale(const Point3& a, float f) {
    return a * f;
}

// Component access for keys whose values are a float, a Point3 or a ScaleValue (its
// factors): the curves of bezier and TCB tracks run per component.
inline float& KeyComponent(float& v, int) {
    return v;
}
inline float KeyComponent(const float& v, int) {
    return v;
}
inline float& KeyComponent(Point3& v, int axis) {
    return v[axis];
}
inline float KeyComponent(const Point3& v, int axis) {
    return v[axis];
}
inline float& KeyComponent(ScaleValue& v, int axis) {
    return v.s[axis];
}
inline float KeyComponent(const ScaleValue& v, int axis) {
    return v.s[axis];
}

// A key's value as the track reads and writes it. Keys that store their value in
// another form (a rotation key's axis and angle) overload these.
template <class Key>
auto KeyValueOf(const Key& key) {
    return key.val;
}
template <class Key, class Value>
void SetKeyValueOf(Key& key, const Value& v) {
    key.val = v;
}

// What every keyframed controller shares, whatever its interpolation: the sorted keys
// (each with time, flags and val), the value held without keys, out-of-range types,
// key editing through IKeyControl and the track operations, animate-mode writes,
// tentative values, and undo with one record per hold. A subclass interpolates
// between keys, extends a curve linearly, and recomputes what depends on the keys.
template <class Key, class Value>
class KeyframeControl : public Control, public IKeyControl {
public:
    using Control::GetInterface;
    void* GetInterface(uint32_t id) override {
        return id == I_KEYCONTROL ? static_cast<IKeyControl*>(this) : Control::GetInterface(id);
    }

    // The value at t, out-of-range types applied.
    Value Evaluate(TimeValue t) const;

    // With commit 0 a write is tentative until CommitValue keeps it or RestoreValue
    // puts back the state from before the first tentative change.
    void CommitValue(TimeValue) override { tentative_.reset(); }
    void RestoreValue(TimeValue) override;

    int NumKeys() override { return int(keys_.size()); }
    TimeValue GetKeyTime(int i) override { return Valid(i) ? keys_[size_t(i)].time : 0; }
    int GetKeyIndex(TimeValue t) override;
    void AddNewKey(TimeValue t, uint32_t flags) override;
    bool IsKeyAtTime(TimeValue t, uint32_t) override { return GetKeyIndex(t) >= 0; }
    void DeleteKeyAtTime(TimeValue t) override;
    // TRACK_DOALL deletes every key, otherwise the selected ones.
    void DeleteKeys(uint32_t flags) override;
    void GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t flags) override;
    void SelectKeys(Interval range, bool select) override;
    bool IsKeySelected(int i) override {
        return Valid(i) && (keys_[size_t(i)].flags & IKEY_SELECTED);
    }
    // Moves the selected keys (every key with selectedOnly false) by dt ticks.
    void MoveKeys(TimeValue dt, bool selectedOnly) override;
    bool IsKeyable() override { return true; }
    Interval GetTimeRange() override {
        return keys_.empty() ? NEVER : Interval(keys_.front().time, keys_.back().time);
    }
    int GetORT(int side) override { return side == ORT_BEFORE ? ortBefore_ : ortAfter_; }
    // Constant, cycle, loop, oscillate, linear and relative repeat; others are refused.
    void SetORT(int type, int side) override;

    int GetNumKeys() override { return NumKeys(); }
    void SetNumKeys(int n) override;
    void GetKey(int i, IKey* key) override {
        Refresh();
        if (Valid(i)) *static_cast<Key*>(key) = keys_[size_t(i)];
    }
    void SetKey(int i, IKey* key) override;
    int AppendKey(IKey* key) override;
    void SortKeys() override;

    // Tangents and the curve's tables are rebuilt on the first read after edits, so
    // that a loader appending keys one by one does not rebuild them for every key; a
    // reader of the tables calls this first.
    void Refresh() const {
        if (!stale_) return;
        auto* self = const_cast<KeyframeControl*>(this);  // never a const object
        self->UpdateTangents();
        self->UpdateSegments();
        self->stale_ = false;
    }

    // The keys with every field, the value held without keys and both out-of-range
    // types. A loaded track sorts its keys and rebuilds its tables on the first read.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The same class with the keys, the value held without keys and both out-of-range
    // types; its tables are rebuilt on its first read.
    ReferenceTarget* Clone(RemapDir& remap) override {
        return CloneObject(this, remap, [this](KeyframeControl& to) { to.SetState(GetState()); });
    }

protected:
    // Between the first and the last key, with at least two keys.
    virtual Value Interpolate(TimeValue t) const = 0;
    // Beyond the first key (before) or the last one along the curve's end direction.
    virtual Value ExtendLinear(bool before, TimeValue t) const = 0;
    // Before the first read after edits, undo or redo: automatic tangents and the like,
    virtual void UpdateTangents() {}
    // then the tables read by Interpolate.
    virtual void UpdateSegments() {}
    virtual const wchar_t* KeysUndoName() const = 0;

    // Strictly between the first and last keys with the curve's tables up to date: most
    // reads, which a subclass answers with its own Interpolate, called directly.
    bool Inside(TimeValue t) const { return !stale_ && span_.Start() < t && t < span_.End(); }
    // Narrows valid to the span over which the value at t holds.
    void NarrowValidity(TimeValue t, Interval& valid) const {
        if (span_.Start() < t && t < span_.End()) return valid.NarrowToInstant(t);
        NarrowOutside(t, valid);
    }
    // Animating: sets the key at t, or makes one. Otherwise: without keys the held
    // value changes; with a key at t that key; else every key moves by the change.
    void WriteValue(TimeValue t, const Value& v, int commit);

    std::vector<Key> keys_;

private:
    class KeysRestore;
    struct State {
        std::vector<Key> keys;
        Value value{};
        int ortBefore = ORT_CONSTANT, ortAfter = ORT_CONSTANT;
    };

    bool Valid(int i) const { return i >= 0 && i < int(keys_.size()); }
    // Every edit: record the state once per hold, change, recompute, notify.
    template <typename Edit>
    void Change(Edit edit);
    State GetState() const { return {keys_, value_, ortBefore_, ortAfter_}; }
    void SetState(const State& s);
    void InsertKey(TimeValue t, const Value& v, uint32_t flags);
    template <typename Pred>
    void Erase(Pred doomed);
    void SortKeysInPlace();
    static bool AcceptedORT(int type);
    static IOResult ReadORT(ILoad* iload, int& type);
    void NarrowOutside(TimeValue t, Interval& valid) const;
    TimeValue MapOutOfRange(TimeValue t, Value& offset) const;

    // The keys' times from first to last, kept beside the other fields that every read
    // needs, so that a read touches the keys only through the curve's own tables.
    void UpdateSpan() {
        span_ = keys_.empty() ? NEVER : Interval(keys_.front().time, keys_.back().time);
    }

    std::unique_ptr<State> tentative_;  // rare, so kept out of the way of reads
    Value value_{};
    int ortBefore_ = ORT_CONSTANT, ortAfter_ = ORT_CONSTANT;
    // What every read checks, last, to sit beside the curve tables' own read state that
    // a subclass declares first.
    Interval span_ = NEVER;
    bool stale_ = false;
};

// The whole state before and after one hold's edits.
template <class Key, class Value>
class KeyframeControl<Key, Value>::KeysRestore : public RestoreObj {
public:
    explicit KeysRestore(KeyframeControl* c)
        : pin_(c), ctrl_(c), before_(c->GetState()), after_(before_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = ctrl_->GetState();
        ctrl_->SetState(before_);
    }
    void Redo() override { ctrl_->SetState(after_); }
    void EndHold() override { ctrl_->ClearAFlag(A_HELD); }
    WStr Description() override { return WStr(ctrl_->KeysUndoName()); }

private:
    TargetPin pin_;
    KeyframeControl* ctrl_;
    State before_, after_;
};

template <class Key, class Value>
template <typename Edit>
void KeyframeControl<Key, Value>::Change(Edit edit) {
    if (theHold.Holding() && !TestAFlag(A_HELD)) {
        theHold.Put(new KeysRestore(this));
        SetAFlag(A_HELD);
    }
    edit();
    UpdateSpan();
    stale_ = true;
    TrackEdits::Note();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SetState(const State& s) {
    keys_ = s.keys;
    value_ = s.value;
    ortBefore_ = s.ortBefore;
    ortAfter_ = s.ortAfter;
    UpdateSpan();
    stale_ = true;
    TrackEdits::Note();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

template <class Key, class Value>
TimeValue KeyframeControl<Key, Value>::MapOutOfRange(TimeValue t, Value& offset) const {
    const Key& first = keys_.front();
    const Key& last = keys_.back();
    const int type = t < first.time ? ortBefore_ : ortAfter_;
    const int64_t period = int64_t(last.time) - first.time;
    if (period <= 0 || type == ORT_CONSTANT) return t < first.time ? first.time : last.time;
    const int64_t fromStart = int64_t(t) - first.time;
    const int64_t into = ((fromStart % period) + period) % period;
    const int64_t cycles = (fromStart - into) / period;
    if (type == ORT_OSCILLATE && cycles % 2 != 0) return TimeValue(last.time - into);
    if (type == ORT_RELATIVE_REPEAT)
        offset = KeyScale(KeySub(KeyValueOf(last), KeyValueOf(first)), float(cycles));
    return TimeValue(first.time + into);
}

template <class Key, class Value>
Value KeyframeControl<Key, Value>::Evaluate(TimeValue t) const {
    if (keys_.empty()) return value_;
    Refresh();
    if (keys_.size() == 1) return KeyValueOf(keys_[0]);
    if (span_.InInterval(t)) return Interpolate(t);
    const bool before = t < span_.Start();
    if ((before ? ortBefore_ : ortAfter_) == ORT_LINEAR) return ExtendLinear(before, t);
    Value offset{};
    const TimeValue inside = MapOutOfRange(t, offset);
    return KeyAdd(Interpolate(inside), offset);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::NarrowOutside(TimeValue t, Interval& valid) const {
    if (keys_.size() < 2) return;
    const TimeValue first = span_.Start(), last = span_.End();
    if (t < first && ortBefore_ == ORT_CONSTANT)
        valid &= Interval(TIME_NegInfinity, first);
    else if (t > last && ortAfter_ == ORT_CONSTANT)
        valid &= Interval(last, TIME_PosInfinity);
    else
        valid.NarrowToInstant(t);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::RestoreValue(TimeValue) {
    if (!tentative_) return;
    const State before = *tentative_;
    tentative_.reset();
    Change([&] { SetState(before); });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::WriteValue(TimeValue t, const Value& v, int commit) {
    if (commit)
        tentative_.reset();
    else if (!tentative_)
        tentative_ = std::make_unique<State>(GetState());
    const bool animating = Animating();
    Change([&] {
        const int index = GetKeyIndex(t);
        if (index >= 0) {
            SetKeyValueOf(keys_[size_t(index)], v);
        } else if (animating) {
            InsertKey(t, v, 0);
        } else if (keys_.empty()) {
            value_ = v;
        } else {
            const Value delta = KeySub(v, Evaluate(t));
            for (Key& key : keys_) SetKeyValueOf(key, KeyAdd(KeyValueOf(key), delta));
        }
    });
}

template <class Key, class Value>
int KeyframeControl<Key, Value>::GetKeyIndex(TimeValue t) {
    const auto it = std::lower_bound(keys_.begin(), keys_.end(), t,
                                     [](const Key& k, TimeValue time) { return k.time < time; });
    return it != keys_.end() && it->time == t ? int(it - keys_.begin()) : -1;
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::AddNewKey(TimeValue t, uint32_t flags) {
    if (GetKeyIndex(t) >= 0) return;
    const Value v = Evaluate(t);
    Change([&] { InsertKey(t, v, flags & IKEY_SELECTED); });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::InsertKey(TimeValue t, const Value& v, uint32_t flags) {
    Key key;
    key.time = t;
    SetKeyValueOf(key, v);
    key.flags = flags;
    const auto at = std::upper_bound(keys_.begin(), keys_.end(), t,
                                     [](TimeValue time, const Key& k) { return time < k.time; });
    keys_.insert(at, key);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::DeleteKeyAtTime(TimeValue t) {
    const int index = GetKeyIndex(t);
    if (index >= 0)
        Change([&] { Erase([&](const Key& k) { return &k == &keys_[size_t(index)]; }); });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::DeleteKeys(uint32_t flags) {
    const bool all = flags & TRACK_DOALL;
    Change([&] { Erase([all](const Key& k) { return all || (k.flags & IKEY_SELECTED); }); });
}

template <class Key, class Value>
template <typename Pred>
void KeyframeControl<Key, Value>::Erase(Pred doomed) {
    // Without keys the track keeps the value it had at the scene's start.
    const Value atStart = Evaluate(0);
    std::erase_if(keys_, doomed);
    if (keys_.empty()) value_ = atStart;
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t) {
    for (const Key& k : keys_)
        if (range.InInterval(k.time)) times.Append(1, &k.time);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SelectKeys(Interval range, bool select) {
    Change([&] {
        for (Key& k : keys_)
            if (range.InInterval(k.time))
                k.flags = select ? k.flags | IKEY_SELECTED : k.flags & ~IKEY_SELECTED;
    });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::MoveKeys(TimeValue dt, bool selectedOnly) {
    Change([&] {
        for (Key& k : keys_)
            if (!selectedOnly || (k.flags & IKEY_SELECTED)) k.time += dt;
        SortKeysInPlace();
    });
}

template <class Key, class Value>
bool KeyframeControl<Key, Value>::AcceptedORT(int type) {
    static constexpr int kAccepted[] = {ORT_CONSTANT,  ORT_CYCLE,  ORT_LOOP,
                                        ORT_OSCILLATE, ORT_LINEAR, ORT_RELATIVE_REPEAT};
    return std::find(std::begin(kAccepted), std::end(kAccepted), type) != std::end(kAccepted);
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SetORT(int type, int side) {
    if (!AcceptedORT(type)) return;
    Change([&] { (side == ORT_BEFORE ? ortBefore_ : ortAfter_) = type; });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SetNumKeys(int n) {
    Change([&] { keys_.resize(size_t(std::max(n, 0))); });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SetKey(int i, IKey* key) {
    if (Valid(i)) Change([&] { keys_[size_t(i)] = *static_cast<Key*>(key); });
}

template <class Key, class Value>
int KeyframeControl<Key, Value>::AppendKey(IKey* key) {
    Change([&] { keys_.push_back(*static_cast<Key*>(key)); });
    return NumKeys() - 1;
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SortKeys() {
    Change([&] { SortKeysInPlace(); });
}

template <class Key, class Value>
void KeyframeControl<Key, Value>::SortKeysInPlace() {
    std::stable_sort(keys_.begin(), keys_.end(),
                     [](const Key& a, const Key& b) { return a.time < b.time; });
}

template <class Key, class Value>
IOResult KeyframeControl<Key, Value>::Save(ISave* isave) {
    // Keys are plain structs of 4-byte fields, so a table of them has no padding.
    isave->BeginChunk(chunks::CTRL_KEYS);
    WriteTable(isave, keys_);
    isave->EndChunk();
    isave->WriteChunk(chunks::CTRL_VALUE, value_);
    isave->WriteChunk(chunks::CTRL_ORT_BEFORE, int32_t(ortBefore_));
    isave->WriteChunk(chunks::CTRL_ORT_AFTER, int32_t(ortAfter_));
    return IO_OK;
}

template <class Key, class Value>
IOResult KeyframeControl<Key, Value>::Load(ILoad* iload) {
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        switch (id) {
            case chunks::CTRL_KEYS:
                return ReadTable(iload, keys_);
            case chunks::CTRL_VALUE:
                return iload->ReadValue(value_);
            case chunks::CTRL_ORT_BEFORE:
                return ReadORT(iload, ortBefore_);
            case chunks::CTRL_ORT_AFTER:
                return ReadORT(iload, ortAfter_);
            default:
                return IO_OK;
        }
    });
    // Every read relies on sorted keys; a file may hold them in any order.
    SortKeysInPlace();
    UpdateSpan();
    stale_ = true;
    TrackEdits::Note();
    return result;
}

template <class Key, class Value>
IOResult KeyframeControl<Key, Value>::ReadORT(ILoad* iload, int& type) {
    int32_t read = 0;
    if (iload->ReadValue(read) != IO_OK) return IO_ERROR;
    if (!AcceptedORT(read)) return LoadError(iload, "an out-of-range type is unknown");
    type = read;
    return IO_OK;
}

}  // namespace host
