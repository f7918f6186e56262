#include "host/classes/ICurveCtl.h"

#include <algorithm>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/HostClassIds.h"
#include "host/object/RemapDir.h"
#include "host/object/SnapshotRestore.h"

namespace host {

ClassDesc2* GetCurveControlDesc() {
    static HostClassDesc<ICurveCtl> desc(L"CurveControl", L"curvecontrol", REF_TARGET_CLASS_ID,
                                         CURVE_CONTROL_CLASS_ID, false);
    return &desc;
}

ICurveCtl::ICurveCtl(bool loading) {
    if (loading) return;
    SetNumCurves(1);
    ICurve* curve = curves_.front().get();
    curve->points_ = {{{0.0f, 0.0f}, {}, {}, CURVEP_CORNER}, {{1.0f, 1.0f}, {}, {}, CURVEP_CORNER}};
}

Class_ID ICurveCtl::ClassID() {
    return CURVE_CONTROL_CLASS_ID;
}

SClass_ID ICurveCtl::SuperClassID() {
    return REF_TARGET_CLASS_ID;
}

void ICurveCtl::Record() {
    if (theHold.Holding())
        theHold.Put(new SnapshotRestore<ICurveCtl, State>(this, &ICurveCtl::GetState,
                                                          &ICurveCtl::SetState, L"Curve"));
}

ICurveCtl::State ICurveCtl::GetState() const {
    State s;
    for (const auto& curve : curves_) s.curves.push_back(curve->points_);
    std::copy(std::begin(range_), std::end(range_), std::begin(s.range));
    return s;
}

void ICurveCtl::SetState(const State& s) {
    // Curves that stay keep their objects, so pointers to them survive undo.
    curves_.resize(s.curves.size());
    for (size_t i = 0; i < curves_.size(); ++i) {
        if (!curves_[i]) curves_[i].reset(new ICurve(this));
        curves_[i]->points_ = s.curves[i];
    }
    std::copy(std::begin(s.range), std::end(s.range), std::begin(range_));
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

IOResult ICurveCtl::Save(ISave* isave) {
    isave->WriteChunk(chunks::CURVECTL_RANGE, range_);
    for (const auto& curve : curves_) {
        isave->BeginChunk(chunks::CURVECTL_CURVE);
        curve->Save(isave);
        isave->EndChunk();
    }
    return IO_OK;
}

IOResult ICurveCtl::Load(ILoad* iload) {
    std::vector<std::unique_ptr<ICurve>> curves;
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        if (id == chunks::CURVECTL_RANGE) return iload->ReadValue(range_);
        if (id != chunks::CURVECTL_CURVE) return IO_OK;
        curves.emplace_back(new ICurve(this));
        return curves.back()->Load(iload);
    });
    if (result != IO_OK) return IO_ERROR;
    curves_ = std::move(curves);
    return IO_OK;
}

void ICurveCtl::SetNumCurves(int n) {
    n = std::max(n, 0);
    if (n == GetNumCurves()) return;
    Edit([&] {
        curves_.resize(size_t(n));
        for (auto& curve : curves_)
            if (!curve) curve.reset(new ICurve(this));
    });
}

void ICurveCtl::SetXRange(float lo, float hi) {
    Edit([&] {
        range_[0] = lo;
        range_[1] = hi;
    });
    if (rangeChanged_) rangeChanged_(this);
}

void ICurveCtl::SetYRange(float lo, float hi) {
    Edit([&] {
        range_[2] = lo;
        range_[3] = hi;
    });
    if (rangeChanged_) rangeChanged_(this);
}

void ICurveCtl::GetXRange(float& lo, float& hi) const {
    lo = range_[0];
    hi = range_[1];
}

void ICurveCtl::GetYRange(float& lo, float& hi) const {
    lo = range_[2];
    hi = range_[3];
}

ReferenceTarget* ICurveCtl::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](ICurveCtl& to) { to.SetState(GetState()); });
}

}  // namespace host
