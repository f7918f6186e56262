#include "host/classes/BezierFloat.h"

#include <algorithm>
#include <cmath>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"

namespace host {

namespace {

constexpr float kThird = 1.0f / 3.0f;

float Bezier(float p0, float p1, float p2, float p3, float u) {
    const float v = 1.0f - u;
    return v * v * v * p0 + 3.0f * v * v * u * p1 + 3.0f * v * u * u * p2 + u * u * u * p3;
}

// The parameter u at which the segment's time curve, with control times at outLength
// and 1 - inLength of its duration, reaches the fraction s: Newton steps, kept in [0, 1].
float ParameterAt(float s, float outLength, float inLength) {
    const float p1 = outLength, p2 = 1.0f - inLength;
    float u = s;
    for (int i = 0; i < 12; ++i) {
        const float error = Bezier(0.0f, p1, p2, 1.0f, u) - s;
        if (std::fabs(error) < 1e-7f) break;
        const float v = 1.0f - u;
        const float slope =
            3.0f * v * v * p1 + 6.0f * v * u * (p2 - p1) + 3.0f * u * u * (1.0f - p2);
        u = std::clamp(slope > 1e-6f ? u - error / slope : u - error, 0.0f, 1.0f);
    }
    return u;
}

// a modulo b into [0, b), for b > 0.
int64_t Wrap(int64_t a, int64_t b) {
    return ((a % b) + b) % b;
}

bool IsStepped(const IBezFloatKey& a, const IBezFloatKey& b) {
    return GetOutTanType(a.flags) == BEZKEY_STEP || GetInTanType(b.flags) == BEZKEY_STEP;
}

// The slope an automatic tangent type gives, from the key's side's linear slope and the
// smooth slope across its neighbours; custom keeps the present one.
float AutomaticSlope(BezierTangent type, float linear, float smooth, float present) {
    switch (type) {
        case BEZKEY_SMOOTH:
            return smooth;
        case BEZKEY_LINEAR:
            return linear;
        case BEZKEY_FAST:
            return 2.0f * linear;
        case BEZKEY_SLOW:
            return 0.5f * linear;
        case BEZKEY_USER:
            return present;
        default:
            return 0.0f;  // flat, step
    }
}

}  // namespace

ClassDesc2* GetBezierFloatDesc() {
    static HostClassDesc<BezierFloat> desc(L"Bezier Float", L"bezier_float", CTRL_FLOAT_CLASS_ID,
                                           BEZIER_FLOAT_CLASS_ID, false);
    return &desc;
}

// The whole state before and after one hold's edits.
class BezierFloat::KeysRestore : public RestoreObj {
public:
    explicit KeysRestore(BezierFloat* c) : pin_(c), ctrl_(c), before_(c->Save()), after_(before_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = ctrl_->Save();
        ctrl_->Load(before_);
    }
    void Redo() override { ctrl_->Load(after_); }
    void EndHold() override { ctrl_->ClearAFlag(A_HELD); }
    WStr Description() override { return WStr(L"Bezier Float Keys"); }

private:
    TargetPin pin_;
    BezierFloat* ctrl_;
    State before_, after_;
};

void* BezierFloat::GetInterface(uint32_t id) {
    return id == I_KEYCONTROL ? static_cast<IKeyControl*>(this) : Control::GetInterface(id);
}

template <typename Edit>
void BezierFloat::Change(Edit edit) {
    if (theHold.Holding() && !TestAFlag(A_HELD)) {
        theHold.Put(new KeysRestore(this));
        SetAFlag(A_HELD);
    }
    edit();
    UpdateTangents();
    UpdateSegments();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void BezierFloat::Load(const State& s) {
    keys_ = s.keys;
    value_ = s.value;
    ortBefore_ = s.ortBefore;
    ortAfter_ = s.ortAfter;
    UpdateSegments();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void BezierFloat::UpdateTangents() {
    const size_t n = keys_.size();
    auto slope = [this](size_t a, size_t b) {
        const float dt = float(keys_[b].time - keys_[a].time);
        return dt != 0.0f ? (keys_[b].val - keys_[a].val) / dt : 0.0f;
    };
    for (size_t k = 0; k < n; ++k) {
        IBezFloatKey& key = keys_[k];
        const float before = k > 0 ? slope(k - 1, k) : (k + 1 < n ? slope(k, k + 1) : 0.0f);
        const float after = k + 1 < n ? slope(k, k + 1) : before;
        const float smooth = k > 0 && k + 1 < n ? slope(k - 1, k + 1) : (k > 0 ? before : after);
        key.outtan = AutomaticSlope(GetOutTanType(key.flags), after, smooth, key.outtan);
        key.intan = -AutomaticSlope(GetInTanType(key.flags), before, smooth, -key.intan);
    }
}

float BezierFloat::SegmentValue(size_t k, TimeValue t) const {
    const IBezFloatKey& a = keys_[k];
    const IBezFloatKey& b = keys_[k + 1];
    if (t <= a.time || IsStepped(a, b)) return t >= b.time ? b.val : a.val;
    if (t >= b.time) return b.val;
    const float dt = float(b.time - a.time);
    const float s = float(t - a.time) / dt;
    const bool thirds = a.outLength == kThird && b.inLength == kThird;
    const float u = thirds ? s : ParameterAt(s, a.outLength, b.inLength);
    return Bezier(a.val, a.val + a.outtan * a.outLength * dt, b.val + b.intan * b.inLength * dt,
                  b.val, u);
}

float BezierFloat::EvaluateInRange(TimeValue t) const {
    const auto next = std::upper_bound(times_.begin(), times_.end(), t);
    const size_t after = size_t(next - times_.begin());
    const size_t k = std::clamp<size_t>(after == 0 ? 0 : after - 1, 0, keys_.size() - 2);
    const Cubic& cubic = cubics_[k];
    if (cubic.invDuration == 0.0f || t <= times_[k] || t >= times_[k + 1])
        return SegmentValue(k, t);
    const float s = float(t - times_[k]) * cubic.invDuration;
    return ((cubic.c[3] * s + cubic.c[2]) * s + cubic.c[1]) * s + cubic.c[0];
}

void BezierFloat::UpdateSegments() {
    times_.resize(keys_.size());
    for (size_t k = 0; k < keys_.size(); ++k) times_[k] = keys_[k].time;
    cubics_.assign(keys_.size() > 1 ? keys_.size() - 1 : 0, Cubic{});
    for (size_t k = 0; k < cubics_.size(); ++k) {
        const IBezFloatKey& a = keys_[k];
        const IBezFloatKey& b = keys_[k + 1];
        const float dt = float(b.time - a.time);
        if (dt <= 0.0f || IsStepped(a, b) || a.outLength != kThird || b.inLength != kThird)
            continue;
        // The Bezier's control values in the power basis.
        const float p0 = a.val, p1 = a.val + a.outtan * kThird * dt,
                    p2 = b.val + b.intan * kThird * dt, p3 = b.val;
        cubics_[k] = {
            1.0f / dt,
            {p0, 3.0f * (p1 - p0), 3.0f * (p0 - 2.0f * p1 + p2), p3 - p0 + 3.0f * (p1 - p2)}};
    }
}

TimeValue BezierFloat::MapOutOfRange(TimeValue t, float& offset) const {
    const IBezFloatKey& first = keys_.front();
    const IBezFloatKey& last = keys_.back();
    const int type = t < first.time ? ortBefore_ : ortAfter_;
    const int64_t period = int64_t(last.time) - first.time;
    if (period <= 0 || type == ORT_CONSTANT) return t < first.time ? first.time : last.time;
    const int64_t fromStart = int64_t(t) - first.time;
    const int64_t cycles = (fromStart - Wrap(fromStart, period)) / period;
    const int64_t into = Wrap(fromStart, period);
    if (type == ORT_OSCILLATE && cycles % 2 != 0) return TimeValue(last.time - into);
    if (type == ORT_RELATIVE_REPEAT) offset = float(cycles) * (last.val - first.val);
    return TimeValue(first.time + into);
}

float BezierFloat::Evaluate(TimeValue t) const {
    if (keys_.empty()) return value_;
    if (keys_.size() == 1) return keys_[0].val;
    const IBezFloatKey& first = keys_.front();
    const IBezFloatKey& last = keys_.back();
    if (t >= first.time && t <= last.time) return EvaluateInRange(t);
    const bool before = t < first.time;
    if ((before ? ortBefore_ : ortAfter_) == ORT_LINEAR)
        return before ? first.val + first.intan * float(first.time - t)
                      : last.val + last.outtan * float(t - last.time);
    float offset = 0.0f;
    const TimeValue inside = MapOutOfRange(t, offset);
    return EvaluateInRange(inside) + offset;
}

void BezierFloat::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const float v = Evaluate(t);
    if (keys_.size() > 1) {
        const TimeValue first = keys_.front().time, last = keys_.back().time;
        if (t < first && ortBefore_ == ORT_CONSTANT)
            valid &= Interval(TIME_NegInfinity, first);
        else if (t > last && ortAfter_ == ORT_CONSTANT)
            valid &= Interval(last, TIME_PosInfinity);
        else
            valid &= Interval(t, t);
    }
    float* out = static_cast<float*>(val);
    *out = method == CTRL_RELATIVE ? *out + v : v;
}

void BezierFloat::RestoreValue(TimeValue) {
    if (!tentative_) return;
    const State before = *tentative_;
    tentative_.reset();
    Change([&] { Load(before); });
}

void BezierFloat::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    if (commit)
        tentative_.reset();
    else if (!tentative_)
        tentative_ = Save();
    const float v = *static_cast<float*>(val) + (method == CTRL_RELATIVE ? Evaluate(t) : 0.0f);
    const bool animating = Animating();
    Change([&] {
        const int index = GetKeyIndex(t);
        if (index >= 0) {
            keys_[size_t(index)].val = v;
        } else if (animating) {
            InsertKey(t, v, 0);
        } else if (keys_.empty()) {
            value_ = v;
        } else {
            const float delta = v - Evaluate(t);
            for (IBezFloatKey& key : keys_) key.val += delta;
        }
    });
}

TimeValue BezierFloat::GetKeyTime(int i) {
    return i >= 0 && i < NumKeys() ? keys_[size_t(i)].time : 0;
}

int BezierFloat::GetKeyIndex(TimeValue t) {
    const auto it =
        std::lower_bound(keys_.begin(), keys_.end(), t,
                         [](const IBezFloatKey& k, TimeValue time) { return k.time < time; });
    return it != keys_.end() && it->time == t ? int(it - keys_.begin()) : -1;
}

void BezierFloat::AddNewKey(TimeValue t, uint32_t flags) {
    if (GetKeyIndex(t) >= 0) return;
    const float v = Evaluate(t);
    Change([&] { InsertKey(t, v, flags & IKEY_SELECTED); });
}

void BezierFloat::InsertKey(TimeValue t, float v, uint32_t flags) {
    IBezFloatKey key;
    key.time = t;
    key.val = v;
    key.flags = flags;
    const auto at =
        std::upper_bound(keys_.begin(), keys_.end(), t,
                         [](TimeValue time, const IBezFloatKey& k) { return time < k.time; });
    keys_.insert(at, key);
}

void BezierFloat::DeleteKeyAtTime(TimeValue t) {
    const int index = GetKeyIndex(t);
    if (index >= 0)
        Change([&] { Erase([&](const IBezFloatKey& k) { return &k == &keys_[size_t(index)]; }); });
}

void BezierFloat::DeleteKeys(uint32_t flags) {
    const bool all = flags & TRACK_DOALL;
    Change(
        [&] { Erase([all](const IBezFloatKey& k) { return all || (k.flags & IKEY_SELECTED); }); });
}

template <typename Pred>
void BezierFloat::Erase(Pred doomed) {
    // Without keys the track keeps the value it had at the scene's start.
    const float atStart = Evaluate(0);
    std::erase_if(keys_, doomed);
    if (keys_.empty()) value_ = atStart;
}

void BezierFloat::GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t) {
    for (const IBezFloatKey& k : keys_)
        if (range.InInterval(k.time)) times.Append(1, &k.time);
}

void BezierFloat::SelectKeys(Interval range, bool select) {
    Change([&] {
        for (IBezFloatKey& k : keys_)
            if (range.InInterval(k.time))
                k.flags = select ? k.flags | IKEY_SELECTED : k.flags & ~IKEY_SELECTED;
    });
}

bool BezierFloat::IsKeySelected(int i) {
    return i >= 0 && i < NumKeys() && (keys_[size_t(i)].flags & IKEY_SELECTED);
}

void BezierFloat::MoveKeys(TimeValue dt, bool selectedOnly) {
    Change([&] {
        for (IBezFloatKey& k : keys_)
            if (!selectedOnly || (k.flags & IKEY_SELECTED)) k.time += dt;
        SortKeysInPlace();
    });
}

Interval BezierFloat::GetTimeRange() {
    return keys_.empty() ? NEVER : Interval(keys_.front().time, keys_.back().time);
}

void BezierFloat::SetORT(int type, int side) {
    static constexpr int kAccepted[] = {ORT_CONSTANT,  ORT_CYCLE,  ORT_LOOP,
                                        ORT_OSCILLATE, ORT_LINEAR, ORT_RELATIVE_REPEAT};
    if (std::find(std::begin(kAccepted), std::end(kAccepted), type) == std::end(kAccepted)) return;
    Change([&] { (side == ORT_BEFORE ? ortBefore_ : ortAfter_) = type; });
}

void BezierFloat::SetNumKeys(int n) {
    Change([&] { keys_.resize(size_t(std::max(n, 0))); });
}

void BezierFloat::GetKey(int i, IKey* key) {
    if (i >= 0 && i < NumKeys()) *static_cast<IBezFloatKey*>(key) = keys_[size_t(i)];
}

void BezierFloat::SetKey(int i, IKey* key) {
    if (i >= 0 && i < NumKeys())
        Change([&] { keys_[size_t(i)] = *static_cast<IBezFloatKey*>(key); });
}

int BezierFloat::AppendKey(IKey* key) {
    Change([&] { keys_.push_back(*static_cast<IBezFloatKey*>(key)); });
    return NumKeys() - 1;
}

void BezierFloat::SortKeys() {
    Change([&] { SortKeysInPlace(); });
}

void BezierFloat::SortKeysInPlace() {
    std::stable_sort(keys_.begin(), keys_.end(),
                     [](const IBezFloatKey& a, const IBezFloatKey& b) { return a.time < b.time; });
}

}  // namespace host
