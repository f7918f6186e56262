#include "host/classes/PRSReadPlan.h"

#include <typeinfo>

#include "host/classes/BezierFloat.h"
#include "host/classes/BezierScale.h"
#include "host/classes/EulerXYZ.h"
#include "host/classes/PositionXYZ.h"
#include "host/math/RowMatrix.h"

namespace host {

namespace {

// Of class T itself: a subclass may read differently.
template <class T>
T* Exactly(Control* c) {
    return c && typeid(*c) == typeid(T) ? static_cast<T*>(c) : nullptr;
}

}  // namespace

void PRSReadPlan::Build(Control* position, Control* rotation, Control* scale) {
    built_ = TrackEdits::Count();
    applies_ = false;
    reads_ = 0;
    spans_.Clear();
    auto* euler = Exactly<EulerXYZ>(rotation);
    scale_ = Exactly<BezierScale>(scale);
    if (!Exactly<PositionXYZ>(position) || !euler || !scale_) return;
    Control* parts[2] = {position, rotation};
    for (int i = 0; i < kScaleChannel; ++i) {
        Control* part = parts[i / 3];
        Control* axis = i % 3 == 0   ? part->GetXController()
                        : i % 3 == 1 ? part->GetYController()
                                     : part->GetZController();
        if (!(tracks_[i] = Exactly<BezierFloat>(axis))) return;
        tracks_[i]->Refresh();
        cursors_[i] = tracks_[i]->Channel(0).LastRead();
    }
    scale_->Refresh();
    for (int k = 0; k < 3; ++k) cursors_[kScaleChannel + k] = scale_->Channel(k).LastRead();
    oneAxis_ = scale_->OneAxis();
    scaleAxis_ = scale_->Axis();
    compose_ = kCompose[CheckedEulerOrder(euler->EulerXYZ::GetOrder())];
    applies_ = true;
}

float PRSReadPlan::ReadTrack(int i, TimeValue t, Interval& valid) {
    const float v = tracks_[i]->Read(t, valid);
    cursors_[i] = tracks_[i]->Channel(0).LastRead();
    return v;
}

void PRSReadPlan::Apply(TimeValue t, Matrix3& tm, Interval& valid) {
    float v[SpanTable::kLanes];
    ScaleValue scale(Point3(), scaleAxis_);
    if (!spans_.Empty() && spans_.Read(t, v)) {
        // As a cursor's, the table's value holds at t alone.
        valid.NarrowToInstant(t);
        scale.s = Point3(v[kScaleChannel], v[kScaleChannel + 1], v[kScaleChannel + 2]);
    } else {
        ReadChannels(t, v, scale, valid);
        if (reads_ < kPackAfter && ++reads_ == kPackAfter) Pack();
    }
    compose_(v, scale, tm);
}

void PRSReadPlan::Pack() {
    // The scale's factors are channels only when every key turns the same axis.
    if (!oneAxis_) return;
    const BezierChannel* channels[kChannels];
    for (int i = 0; i < kScaleChannel; ++i) channels[i] = &tracks_[i]->Channel(0);
    for (int k = 0; k < 3; ++k) channels[kScaleChannel + k] = &scale_->Channel(k);
    spans_.Pack(channels, kChannels);
}

void PRSReadPlan::ReadChannels(TimeValue t, float* v, ScaleValue& scale, Interval& valid) {
    // Every segment a read may step to is asked for at once, rather than one by one as
    // the reads reach them.
    for (const BezierChannel::Cursor& cursor : cursors_) cursor.Prefetch();
    // A cursor's value holds at t alone, as a track's read inside its keys does.
    bool answered = false;
    for (int i = 0; i < kScaleChannel; ++i) {
        if (cursors_[i].Read(t, v[i]))
            answered = true;
        else
            v[i] = ReadTrack(i, t, valid);
    }
    BezierChannel::Cursor* factors = cursors_ + kScaleChannel;
    if (oneAxis_ && factors[0].Read(t, scale.s.x) && factors[1].Read(t, scale.s.y) &&
        factors[2].Read(t, scale.s.z)) {
        answered = true;
    } else {
        scale = scale_->Read(t, valid);
        for (int k = 0; k < 3; ++k) factors[k] = scale_->Channel(k).LastRead();
    }
    if (answered) valid.NarrowToInstant(t);
}

template <int Order>
void PRSReadPlan::Compose(const float* v, const ScaleValue& scale, Matrix3& tm) {
    float angles[3];
    EulerXYZ::ToAngles(v + 3, angles, Order);
    const RowMatrix::EulerTurns turns(angles);
    RowMatrix rows(tm);
    rows.PreTranslate(Point3(v[0], v[1], v[2]));
    rows.PreRotateEuler<Order>(turns);
    // A scale about turned axes is a matrix product, left to ApplyScaling.
    const bool alongAxes = scale.q.IsIdentity();
    if (alongAxes) rows.PreScale(scale.s);
    rows.Store(tm);
    if (!alongAxes) ApplyScaling(tm, scale);
}

const PRSReadPlan::ComposeFn PRSReadPlan::kCompose[kEulerOrderCount] = {
    &Compose<EULERTYPE_XYZ>, &Compose<EULERTYPE_XZY>, &Compose<EULERTYPE_YZX>,
    &Compose<EULERTYPE_YXZ>, &Compose<EULERTYPE_ZXY>, &Compose<EULERTYPE_ZYX>,
    &Compose<EULERTYPE_XYX>, &Compose<EULERTYPE_YZY>, &Compose<EULERTYPE_ZXZ>,
};

}  // namespace host
