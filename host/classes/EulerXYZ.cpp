#include "host/classes/EulerXYZ.h"

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/TrackEdits.h"

#include "host/math/Euler.h"
#include "host/object/Hold.h"
#include "host/object/RemapDir.h"

namespace host {

namespace {

constexpr const wchar_t* kTrackNames[3] = {L"X Rotation", L"Y Rotation", L"Z Rotation"};

}  // namespace

ClassDesc2* GetEulerXYZDesc() {
    static HostClassDesc<EulerXYZ> desc(L"Euler XYZ", L"Euler XYZ", CTRL_ROTATION_CLASS_ID,
                                        EULER_XYZ_CLASS_ID);
    return &desc;
}

class EulerXYZ::OrderRestore : public RestoreObj {
public:
    OrderRestore(EulerXYZ* c, int before, int after)
        : pin_(c), ctrl_(c), before_(before), after_(after) {}
    void Restore(bool) override { Put(before_); }
    void Redo() override { Put(after_); }

private:
    void Put(int order) {
        ctrl_->order_ = order;
        TrackEdits::Note();
        ctrl_->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }
    TargetPin pin_;
    EulerXYZ* ctrl_;
    int before_, after_;
};

EulerXYZ::EulerXYZ(bool loading) : XYZController(kTrackNames, loading) {}

void* EulerXYZ::GetInterface(uint32_t id) {
    return id == I_EULERCTRL ? static_cast<IEulerControl*>(this) : Control::GetInterface(id);
}

Point3 EulerXYZ::FromAngles(const float* angles) const {
    Point3 tracks;
    for (int step = 0; step < 3; ++step)
        (IsRepeatingEulerOrder(order_) ? tracks[step] : tracks[EulerAxis(order_, step)]) =
            angles[step];
    return tracks;
}

void EulerXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    float angles[3];
    ReadAngles(t, valid, angles);
    if (method == CTRL_RELATIVE) return PreRotateEuler(*static_cast<Matrix3*>(val), angles, order_);
    Matrix3 rotation;
    EulerToMatrix(angles, rotation, order_);
    *static_cast<Quat*>(val) = Quat(rotation);
}

void EulerXYZ::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    Interval valid = FOREVER;
    float angles[3];
    ReadAngles(t, valid, angles);
    Quat q;
    if (method == CTRL_RELATIVE) {
        EulerToQuat(angles, q, order_);
        q = q * Quat(*static_cast<AngAxis*>(val));  // the increment after the present rotation
    } else {
        q = *static_cast<Quat*>(val);
    }
    ContinuousQuatToEuler(q, angles, order_);
    WriteTracks(t, FromAngles(angles), commit, CTRL_ABSOLUTE);
}

void EulerXYZ::SetOrder(int order) {
    if (order == order_ || order < 0 || order >= kEulerOrderCount) return;
    if (theHold.Holding()) theHold.Put(new OrderRestore(this, order_, order));
    order_ = order;
    TrackEdits::Note();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

IOResult EulerXYZ::Save(ISave* isave) {
    isave->WriteChunk(chunks::CTRL_EULER_ORDER, int32_t(order_));
    return IO_OK;
}

IOResult EulerXYZ::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        if (id != chunks::CTRL_EULER_ORDER) return IO_OK;
        int32_t order = 0;
        if (iload->ReadValue(order) != IO_OK) return IO_ERROR;
        if (order < 0 || order >= kEulerOrderCount)
            return LoadError(iload, "an Euler order is unknown");
        order_ = order;
        TrackEdits::Note();
        return IO_OK;
    });
}

ReferenceTarget* EulerXYZ::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](EulerXYZ& to) { to.order_ = order_; });
}

}  // namespace host
