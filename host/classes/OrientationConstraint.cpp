#include "host/classes/OrientationConstraint.h"

#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/TargetLoop.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/RemapDir.h"

namespace host {

ClassDesc2* GetOrientationConstraintDesc() {
    static HostClassDesc<OrientationConstraint> desc(
        L"Orientation Constraint", L"Orientation_Constraint", CTRL_ROTATION_CLASS_ID,
        ORIENTATION_CONSTRAINT_CLASS_ID);
    return &desc;
}

bool OrientationConstraint::SetTargetWeight(int i, float weight) {
    if (!targets_.Valid(i)) return false;
    targets_.SetData(i, weight);
    return true;
}

bool OrientationConstraint::AppendTarget(INode* node, float weight) {
    if (!node || targets_.IndexOf(node) >= 0 || TargetWouldLoop(this, node)) return false;
    targets_.Append(node, weight);
    return true;
}

bool OrientationConstraint::DeleteTarget(int i) {
    if (!targets_.Valid(i)) return false;
    targets_.Delete(i);
    return true;
}

bool OrientationConstraint::Average(TimeValue t, Interval& valid, Quat& average) {
    Quat sum(0.0f, 0.0f, 0.0f, 0.0f), first;
    bool seen = false;
    for (int i = 0; i < targets_.Count(); ++i) {
        INode* node = GetNode(i);
        if (!node) continue;
        Quat q = OrthoQuat(node->GetNodeTM(t, &valid));
        if (seen) q.MakeClosest(first);
        first = seen ? first : q;
        seen = true;
        sum = sum + q * targets_.DataAt(i);
    }
    if (sum.Length() < 1e-6f) return false;
    average = Normalize(sum);
    return true;
}

void OrientationConstraint::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    Quat average;
    const bool weighted = Average(t, valid, average);
    if (method == CTRL_ABSOLUTE) {
        *static_cast<Quat*>(val) = weighted ? average : Quat();
        return;
    }
    auto& tm = *static_cast<Matrix3*>(val);
    if (weighted) tm = ReplaceRotation(tm, average);
}

RefResult OrientationConstraint::NotifyRefChanged(const Interval&, ReferenceTarget* hTarget,
                                                  PartID&, RefMessage message, bool) {
    if (message == REFMSG_TARGET_DELETED)
        for (int i = targets_.IndexOf(hTarget); i >= 0; i = targets_.IndexOf(hTarget))
            targets_.Delete(i);
    return REF_SUCCEED;
}

IOResult OrientationConstraint::Save(ISave* isave) {
    targets_.SaveTable(isave, chunks::CTRL_TARGET_WEIGHTS);
    return IO_OK;
}

IOResult OrientationConstraint::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        return id == chunks::CTRL_TARGET_WEIGHTS ? targets_.LoadTable(iload) : IO_OK;
    });
}

ReferenceTarget* OrientationConstraint::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](OrientationConstraint& to) {
        to.targets_.SetLoadedData(targets_.AllData());
    });
}

}  // namespace host
