// The rig object's point selection and its sub-object level.
#include <memory>
#include <string>

#include "frame/StringTable.h"
#include "host/object/HitLog.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/RestoreObj.h"
#include "host/object/SubObject.h"
#include "host/object/ViewExp.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

// One viewport tool of the point level, shared by every rig: the host edits one object
// at a time.
class PointMode : public CommandMode {
public:
    explicit PointMode(int modeClass) : class_(modeClass) {}
    int Class() override { return class_; }

private:
    int class_;
};

XFormModes PointModes() {
    static PointMode move(MOVE_COMMAND), rotate(ROTATE_COMMAND), scale(SCALE_COMMAND),
        uscale(USCALE_COMMAND), squash(SQUASH_COMMAND), select(SELECT_COMMAND);
    return {&move, &rotate, &scale, &uscale, &squash, &select};
}

// The hits to take: with all, every hit of the same node in the log that holds hitRec
// (the active view's); otherwise hitRec alone.
std::vector<const HitRecord*> HitsToTake(HitRecord* hitRec, bool all) {
    std::vector<const HitRecord*> hits;
    const HitLog& log = GetCOREInterface()->GetActiveViewExp().GetHitLog();
    bool inLog = false;
    for (int i = 0; all && i < log.Count(); ++i) inLog = inLog || &log[i] == hitRec;
    if (!inLog) return {hitRec};
    for (int i = 0; i < log.Count(); ++i)
        if (log[i].nodeRef == hitRec->nodeRef) hits.push_back(&log[i]);
    return hits;
}

}  // namespace

// The whole selection from before a change, and from after it for redo.
class RigSystem::PointsSelRestore : public RestoreObj {
public:
    explicit PointsSelRestore(RigSystem* owner)
        : pin_(owner), owner_(owner), undoSel_(owner->pointSelection) {}
    void Restore(bool isUndo) override {
        if (isUndo) redoSel_ = owner_->pointSelection;
        owner_->ApplySelection(undoSel_);
    }
    void Redo() override { owner_->ApplySelection(redoSel_); }
    int Size() override { return int(sizeof(*this)); }
    WStr Description() override { return WStr(L"PointsSelRestore"); }

private:
    TargetPin pin_;
    RigSystem* owner_;
    BitArray undoSel_;
    BitArray redoSel_;
};

void RigSystem::ApplySelection(const BitArray& sel) {
    for (size_t i = 0; i < points.size(); ++i) {
        const bool on = int(i) < sel.GetSize() && sel[int(i)] && !points[i].Fixed();
        points[i].selected = on ? 1 : 0;
    }
    PointsChanged();
}

void RigSystem::ChangeSelection(const BitArray& next, const int* component) {
    const bool componentChanges =
        component && (!pblock_ || pblock_->GetInt(RIG_SELECTED_COMPONENT) != *component);
    // Fixed points never take part: without them a change may turn out to be none.
    BitArray sized = next;
    sized.SetSize(int(points.size()), 1);
    for (size_t i = 0; i < points.size(); ++i)
        if (points[i].Fixed()) sized.Clear(int(i));
    if (sized == pointSelection && !componentChanges) return;
    theHold.Begin();
    theHold.Put(new PointsSelRestore(this));
    ApplySelection(sized);
    if (componentChanges) WriteSelectedComponent(*component);
    theHold.Accept(WStr(GetString(IDS_RIG_SELECT)));
}

void RigSystem::SelectPoint(int i, bool on) {
    if (i < 0 || size_t(i) >= points.size() || points[size_t(i)].Fixed()) return;
    BitArray next = pointSelection;
    next.Set(i, on);
    ChangeSelection(next, nullptr);
}

void RigSystem::SelectComponent(int component) {
    BitArray next(int(points.size()));
    for (size_t i = 0; i < points.size(); ++i)
        if (points[i].component == component && !points[i].Fixed()) next.Set(int(i));
    ChangeSelection(next, nullptr);
}

void RigSystem::SelectSubComponent(HitRecord* hitRec, bool selected, bool all, bool invert) {
    if (subObjLevel != kPointLevel || !hitRec) return;
    BitArray next = pointSelection;
    int component = -1;
    bool picked = false;
    for (const HitRecord* hit : HitsToTake(hitRec, all)) {
        const size_t i = hit->hitInfo;
        if (i >= points.size() || points[i].Fixed()) continue;
        next.Set(int(i), invert ? !next[int(i)] : selected);
        component = points[i].component;
        picked = true;
    }
    if (picked) ChangeSelection(next, &component);
}

void RigSystem::SelectAll(int selLevel) {
    if (selLevel != kPointLevel) return;
    BitArray next(int(points.size()));
    next.SetAll();
    const int component = 0;
    ChangeSelection(next, &component);
}

void RigSystem::ClearSelection(int selLevel) {
    if (selLevel != kPointLevel) return;
    const int component = -1;
    ChangeSelection(BitArray(int(points.size())), &component);
}

void RigSystem::InvertSelection(int selLevel) {
    if (selLevel != kPointLevel) return;
    ChangeSelection(~pointSelection, nullptr);
}

ISubObjType* RigSystem::GetSubObjType(int i) {
    // Kept: the string table's buffer is overwritten by the next lookup.
    static const std::wstring name = GetString(IDS_RIG_POINTS);
    static GenSubObjType pointsType(name.c_str());
    if (i == -1) i = subObjLevel - 1;
    return i == 0 ? &pointsType : nullptr;
}

void RigSystem::ActivateSubobjSel(int level, XFormModes& modes) {
    subObjLevel = level;
    modes = level == kPointLevel ? PointModes() : XFormModes{};
    NotifyDependents(FOREVER, PART_DISPLAY, REFMSG_CHANGE);
}

void RigSystem::GetSubObjectCenters(SubObjAxisCallback* cb, TimeValue t, INode* node, ModContext*) {
    if (!cb || !node || subObjLevel != kPointLevel) return;
    UpdateBounds(t);
    if (numSelected) cb->Center(gizmoTM.GetTrans() * node->GetObjectTM(t), 0);
}

void RigSystem::GetSubObjectTMs(SubObjAxisCallback* cb, TimeValue t, INode* node, ModContext*) {
    if (!cb || !node || subObjLevel != kPointLevel) return;
    UpdateBounds(t);
    if (numSelected) cb->TM(gizmoTM * node->GetObjectTM(t), 0);
}

}  // namespace zorvanta
