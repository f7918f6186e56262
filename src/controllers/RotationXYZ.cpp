#include "controllers/RotationXYZ.h"

#include <algorithm>
#include <cassert>
#include <cfloat>
#include <cmath>

#include "controllers/ControllerIds.h"
#include "frame/StringTable.h"
#include "host/classes/ChunkIO.h"
#include "host/math/Euler.h"
#include "host/math/RowMatrix.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/PanelService.h"
#include "host/object/RemapDir.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr const wchar_t* kTrackNames[3] = {L"X Rotation", L"Y Rotation", L"Z Rotation"};

// The axes of each order in order of application are kEulerAxes. For orders 0 to 5,
// each track's (X, Y, Z) place among the angles in order of application: the inverse
// of that table's row.
constexpr int kTrackPlace[6][3] = {
    {0, 1, 2}, {0, 2, 1}, {2, 0, 1}, {1, 0, 2}, {1, 2, 0}, {2, 1, 0},
};
constexpr bool PlacesInvertAxes() {
    for (int order = 0; order < 6; ++order)
        for (int track = 0; track < 3; ++track)
            if (kEulerAxes[order][kTrackPlace[order][track]] != track) return false;
    return true;
}
static_assert(PlacesInvertAxes(), "a track's place is where the order applies its axis");

constexpr float kTurn = 6.2831855f;
// A large relative turn is applied in steps of at most this (135 degrees), so that the
// continuous conversion after each step follows the arc instead of the shortest way.
constexpr float kRelativeStep = 2.3561945f;
// A rotation along an Euler axis: |dot| of the axes within this of 1.
constexpr float kAlongAxis = 0.0001f;
// A gimbal handle sends its axis as a unit axis whose component after the next holds
// the smallest normal float, which no computed axis does by chance.
constexpr float kGimbalMark = FLT_MIN;

// m turned by the angles of Order in its own space: R0 * R1 * R2 * m, in registers.
template <int Order>
void PreRotate(Matrix3& m, const float* angles) {
    const RowMatrix::EulerTurns turns(angles);
    RowMatrix rows(m);
    rows.PreRotateEuler<Order>(turns);
    rows.Store(m);
}
using PreRotateFn = void (*)(Matrix3& m, const float* angles);
constexpr PreRotateFn kPreRotate[kEulerOrderCount] = {
    &PreRotate<0>, &PreRotate<1>, &PreRotate<2>, &PreRotate<3>, &PreRotate<4>,
    &PreRotate<5>, &PreRotate<6>, &PreRotate<7>, &PreRotate<8>,
};

Quat EulerQuat(const float* angles, int order) {
    Matrix3 m;
    kPreRotate[order](m, angles);
    return Quat(m);
}

// The place of the angle a gimbal handle's axis turns, when axis is one.
bool GimbalPlace(const Point3& axis, int order, int& place) {
    const int i = axis.MaxComponent();
    if (axis[i] != 1.0f || axis[(i + 1) % 3] != 0.0f || axis[(i + 2) % 3] != kGimbalMark)
        return false;
    const int* axes = kEulerAxes[order];
    if (!IsRepeatingEulerOrder(order))
        place = kTrackPlace[order][i];
    else
        place = i == axes[2] ? 2 : (i == axes[1] ? 1 : 0);  // the last match wins
    return true;
}

// The present directions, in the rotation's outer space, of the axes the three angles
// turn about: the last one is fixed, each earlier one is carried by the turns after it.
void EulerAxisDirections(const float* e, int order, Point3* d) {
    const int* axes = kEulerAxes[order];
    Matrix3 m;
    d[2] = m.GetRow(axes[2]);
    m.PreRotateAbout(axes[2], e[2]);
    d[1] = m.GetRow(axes[1]);
    m.PreRotateAbout(axes[1], e[1]);
    d[0] = m.GetRow(axes[0]);
}

// The time of the latest key before t among the tracks, if any has one.
bool PreviousKeyTime(Control* const* tracks, TimeValue t, TimeValue& latest) {
    bool found = false;
    for (int i = 0; i < 3; ++i) {
        Tab<TimeValue> times;
        if (tracks[i]) tracks[i]->GetKeyTimes(times, Interval(TIME_NegInfinity, t - 1), 0);
        for (TimeValue k : times) {
            if (found && k <= latest) continue;
            latest = k;
            found = true;
        }
    }
    return found;
}

}  // namespace

// Drops the cache and tells the dependents, after the tracks' own records: the record
// put before the tracks' writes is the last to run on undo, the one put after them the
// last on redo.
class RotationXYZ::SetValueRestore : public RestoreObj {
public:
    explicit SetValueRestore(RotationXYZ* c) : pin_(c), ctrl_(c) {}
    void Restore(bool) override { Changed(); }
    void Redo() override { Changed(); }
    void EndHold() override { ctrl_->ClearAFlag(A_EULER_RESTORE_PUT); }

private:
    void Changed() {
        ctrl_->ivalid.SetEmpty();
        ctrl_->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }
    TargetPin pin_;
    RotationXYZ* ctrl_;
};

class RotationXYZ::RotationXYZOrderRestore : public RestoreObj {
public:
    RotationXYZOrderRestore(RotationXYZ* c, int before, int after)
        : pin_(c), ctrl_(c), before_(before), after_(after) {}
    void Restore(bool) override { ctrl_->ApplyOrder(before_); }
    void Redo() override { ctrl_->ApplyOrder(after_); }
    WStr Description() override { return WStr(GetString(IDS_CHANGE_EULER_ORDER)); }

private:
    TargetPin pin_;
    RotationXYZ* ctrl_;
    int before_, after_;
};

// The class's one rollup: the panel the service opened (null without a user
// interface), the controller it shows, and the track whose panel is shown below it.
struct RotationXYZ::Rollup {
    void* panel = nullptr;
    RotationXYZ* owner = nullptr;
    IObjParam* ip = nullptr;
    uint32_t flags = 0;
    int track = 0;

    // Closes the panel; no controller is shown.
    void Close() {
        if (panel) GetPanelService().DeleteRollup(panel);
        panel = nullptr;
        owner = nullptr;
    }
};

RotationXYZ::Rollup& RotationXYZ::TheRollup() {
    static Rollup rollup;
    return rollup;
}

RotationXYZ::RotationXYZ(bool loading) : XYZController(kTrackNames, loading) {
    if (!loading) SetProperty(PROPID_JOINTPARAMS, new JointParamsEuler());
}

RotationXYZ::~RotationXYZ() {
    Rollup& rollup = TheRollup();
    if (rollup.owner == this) rollup.Close();
}

WStr RotationXYZ::GetClassName() {
    return WStr(GetString(IDS_ROTATION_XYZ_CLASS));
}

void* RotationXYZ::GetInterface(uint32_t id) {
    if (id == I_LOCKED) return static_cast<ILockedTrackImp*>(this);
    if (id == I_EULERCTRL) return static_cast<IEulerControl*>(this);
    return XYZController::GetInterface(id);
}

void RotationXYZ::TracksToAngles(const Point3& tracks, float* angles) const {
    const bool repeating = IsRepeatingEulerOrder(order);
    for (int i = 0; i < 3; ++i) angles[i] = tracks[repeating ? i : kEulerAxes[order][i]];
}

void RotationXYZ::UpdateCache(TimeValue t) {
    if (ivalid.InInterval(t)) return;
    ivalid = FOREVER;
    float angles[3];
    TracksToAngles(ReadTracks(t, ivalid), angles);
    curval = Point3(angles[0], angles[1], angles[2]);
}

void RotationXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    if (!blockUpdate) UpdateCache(t);
    valid &= ivalid;
    const float angles[3] = {curval.x, curval.y, curval.z};
    if (method == CTRL_RELATIVE)
        kPreRotate[order](*static_cast<Matrix3*>(val), angles);
    else
        *static_cast<Quat*>(val) = EulerQuat(angles, order);
}

void RotationXYZ::SetValue(TimeValue t, void* val, int, GetSetMethod method) {
    if (GetLocked()) return;
    if (method == CTRL_RELATIVE) {
        const float angle = static_cast<AngAxis*>(val)->angle;
        if (!std::isfinite(angle) || std::fabs(angle) > kMaxRelativeAngle) return;
    }
    UpdateCache(t);
    float e[3] = {curval.x, curval.y, curval.z};
    if (method == CTRL_ABSOLUTE)
        AbsoluteAngles(t, *static_cast<Quat*>(val), e);
    else
        RelativeAngles(*static_cast<AngAxis*>(val), e);
    Store(t, e);
}

void RotationXYZ::AbsoluteAngles(TimeValue t, const Quat& q, float* e) {
    if (IsRepeatingEulerOrder(order)) return QuatToEuler(q, e, order);
    // A new key follows the key before it, not the value the curve has at t.
    TimeValue previous = 0;
    Control* const tracks[3] = {GetXController(), GetYController(), GetZController()};
    if (Animating() && PreviousKeyTime(tracks, t, previous)) {
        Interval ignored = FOREVER;
        TracksToAngles(ReadTracks(previous, ignored), e);
    }
    ContinuousQuatToEuler(q, e, order);
}

void RotationXYZ::RelativeAngles(const AngAxis& aa, float* e) {
    int place = 0;
    if (GetCOREInterface()->GetRefCoordSys() == COORDS_GIMBAL &&
        GimbalPlace(aa.axis, order, place)) {
        e[place] -= aa.angle;
        return;
    }
    // A quaternion turns the other way from a matrix rotation: a turn by a about an
    // Euler axis lowers that angle by a.
    Point3 d[3];
    EulerAxisDirections(e, order, d);
    for (int k = 0; k < 3; ++k) {
        const float dot = aa.axis % d[k];
        if (1.0f - std::fabs(dot) >= kAlongAxis) continue;
        e[k] += dot >= 0.0f ? -aa.angle : aa.angle;
        return;
    }
    Quat q = EulerQuat(e, order);
    if (IsRepeatingEulerOrder(order)) {
        // The solution nearest no turn, then the whole turns each angle had.
        float turns[3];
        for (int i = 0; i < 3; ++i) turns[i] = std::trunc(e[i] / kTurn);
        QuatToEuler(q * Quat(aa), e, order);
        for (int i = 0; i < 3; ++i) e[i] += turns[i] * kTurn;
        return;
    }
    float rest = aa.angle;
    const float step = std::copysign(kRelativeStep, rest);
    for (; std::fabs(rest) > kRelativeStep; rest -= step) {
        q *= Quat(AngAxis(aa.axis, step));
        ContinuousQuatToEuler(q, e, order);
    }
    q *= Quat(AngAxis(aa.axis, rest));
    ContinuousQuatToEuler(q, e, order);
}

void RotationXYZ::Store(TimeValue t, const float* e) {
    curval = Point3(e[0], e[1], e[2]);
    ivalid.SetInstant(t);
    blockUpdate = true;
    const bool recording = theHold.Holding() && !TestAFlag(A_EULER_RESTORE_PUT);
    if (recording) {
        theHold.Put(new SetValueRestore(this));
        SetAFlag(A_EULER_RESTORE_PUT);
    }
    const bool repeating = IsRepeatingEulerOrder(order);
    for (int track = 0; track < 3; ++track) {
        float angle = e[repeating ? track : kTrackPlace[order][track]];
        if (Control* c = Track(track)) c->SetValue(t, &angle, 1, CTRL_ABSOLUTE);
    }
    if (recording) theHold.Put(new SetValueRestore(this));
    blockUpdate = false;
    ivalid.SetEmpty();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void RotationXYZ::SetOrder(int o) {
    if (o == order || o < 0 || o >= kEulerOrderCount) return;
    if (theHold.Holding()) theHold.Put(new RotationXYZOrderRestore(this, order, o));
    ApplyOrder(o);
}

void RotationXYZ::ApplyOrder(int o) {
    order = o;
    ivalid.SetEmpty();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_REDISPLAY);
    const Rollup& rollup = TheRollup();
    if (rollup.owner == this && rollup.panel) GetPanelService().RefreshRollup(rollup.panel);
}

bool RotationXYZ::AssignController(Animatable* c, int sub) {
    if (sub >= 0 && sub < 3)
        if (ILockedTrackImp* lock = GetLockedTrackInterface(Track(sub)); lock && lock->GetLocked())
            return false;
    return XYZController::AssignController(c, sub);
}

void RotationXYZ::SetReference(int i, ReferenceTarget* t) {
    XYZController::SetReference(i, t);
    ivalid.SetEmpty();
    keyTimesStale = true;
}

RefResult RotationXYZ::NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&,
                                        RefMessage message, bool) {
    if (message == REFMSG_CHANGE) {
        ivalid.SetEmpty();
        keyTimesStale = true;
    }
    return REF_SUCCEED;
}

const Tab<TimeValue>& RotationXYZ::KeyTimes() {
    if (keyTimesStale) {
        keyTimes.ZeroCount();
        CompoundControl::GetKeyTimes(keyTimes, FOREVER, 0);
        keyTimesStale = false;
    }
    return keyTimes;
}

TimeValue RotationXYZ::GetKeyTime(int i) {
    const Tab<TimeValue>& times = KeyTimes();
    return i >= 0 && i < times.Count() ? times[i] : 0;
}

JointParamsEuler* RotationXYZ::GetJointParams() {
    return dynamic_cast<JointParamsEuler*>(GetProperty(PROPID_JOINTPARAMS));
}

IOResult RotationXYZ::Save(ISave* isave) {
    WriteFlagChunk(isave, ROTATION_XYZ_LOCKED_CHUNK, GetLocked());
    isave->WriteChunk(ROTATION_XYZ_ORDER_CHUNK, int32_t(order));
    if (JointParamsEuler* joint = GetJointParams()) {
        isave->BeginChunk(ROTATION_XYZ_JOINT_CHUNK);
        joint->Save(isave);
        isave->EndChunk();
    }
    return IO_OK;
}

IOResult RotationXYZ::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        if (id == ROTATION_XYZ_LOCKED_CHUNK) {
            bool locked = false;
            if (ReadFlag(iload, locked) != IO_OK) return IO_ERROR;
            SetLocked(locked);
        } else if (id == ROTATION_XYZ_ORDER_CHUNK) {
            int32_t o = 0;
            if (iload->ReadValue(o) != IO_OK) return IO_ERROR;
            if (o < 0 || o >= kEulerOrderCount)
                return LoadError(iload, "a Rotation XYZ's Euler order is not 0 to 8");
            order = o;
        } else if (id == ROTATION_XYZ_JOINT_CHUNK) {
            auto* joint = new JointParamsEuler();
            if (joint->Load(iload) != IO_OK) {
                delete joint;
                return IO_ERROR;
            }
            SetProperty(PROPID_JOINTPARAMS, joint);
        }
        return IO_OK;
    });
}

ReferenceTarget* RotationXYZ::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](RotationXYZ& to) {
        to.order = order;
        to.SetLocked(GetLocked());
    });
}

void RotationXYZ::BeginEditParams(IObjParam* ip, uint32_t flags, Animatable* prev) {
    if (!(flags & BEGIN_EDIT_MOTION)) return;
    Rollup& rollup = TheRollup();
    rollup.owner = this;
    rollup.ip = ip;
    rollup.flags = flags;
    if (rollup.panel)
        GetPanelService().RefreshRollup(rollup.panel);
    else
        rollup.panel = GetPanelService().AddRollup(this, ClassID(), GetClassName());
    if (Control* track = Track(rollup.track)) track->BeginEditParams(ip, flags, prev);
}

void RotationXYZ::EndEditParams(IObjParam* ip, uint32_t flags, Animatable* next) {
    Rollup& rollup = TheRollup();
    if (rollup.owner != this) return;
    if (Control* track = Track(rollup.track)) track->EndEditParams(ip, flags, next);
    auto* following = dynamic_cast<RotationXYZ*>(next);
    if (following && !following->GetLocked()) {
        rollup.owner = following;
        return;
    }
    rollup.Close();
}

int RotationXYZ::CurrentTrack() {
    return TheRollup().track;
}

void RotationXYZ::SelectTrack(int c) {
    assert(0 <= c && c < 3);
    Rollup& rollup = TheRollup();
    if (c == rollup.track || c < 0 || c >= 3) return;
    RotationXYZ* owner = rollup.owner;
    Control* shown = owner ? owner->Track(rollup.track) : nullptr;
    Control* chosen = owner ? owner->Track(c) : nullptr;
    if (shown) shown->EndEditParams(rollup.ip, rollup.flags, chosen);
    rollup.track = c;
    if (chosen) chosen->BeginEditParams(rollup.ip, rollup.flags, shown);
}

}  // namespace zorvanta
