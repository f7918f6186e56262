#include "extra/WeakRefOwner.h"

#include <algorithm>

#include "extra/ExtraIds.h"
#include "extra/WeakRefOwnerPickNode.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/PanelService.h"

namespace zorvanta {

using namespace host;

WeakRefOwner::~WeakRefOwner() {
    // A pick still aimed at this owner ends first, without it.
    WeakRefOwnerPickNode& picker = WeakRefOwnerPickNode::Instance();
    if (picker.GetOwner() == this) {
        picker.SetOwner(nullptr, -1);
        if (GetCOREInterface()->GetCurPickMode() == &picker) GetCOREInterface()->ClearPickMode();
    }
    theHold.Suspend();
    // An owner that goes with its target leaves the monitors to the reference system,
    // which deletes the one that told it.
    if (!deleteWithTarget_)
        for (Entry& entry : slots_)
            for (int j = 0; j < entry.Count(); ++j)
                if (entry[j]) entry[j]->DeleteThis();
    theHold.Resume();
}

RefResult WeakRefOwner::ProcessRefTargMonitorMsg(const Interval& changeInt, ReferenceTarget* target,
                                                 PartID& partID, RefMessage message,
                                                 bool fromTarget, bool propagate,
                                                 RefTargMonitorRefMaker*) {
    if (!inForward_ && fromTarget && IsMessageForwarded(message))
        return Guarded(inForward_, [&] {
            return ForwardMessage(changeInt, target, partID, message, propagate);
        });
    if (!inDelete_ && fromTarget && message == REFMSG_TARGET_DELETED) {
        partID = PART_ALL;
        const RefResult result = Guarded(inDelete_, [&] {
            return ForwardMessage(changeInt, target, partID, REFMSG_WEAK_TARGET_DELETED, false);
        });
        if (!deleteWithTarget_) return result;
        DestroyOwner();
        return REF_AUTO_DELETE;
    }
    if (!inTargetChange_ && fromTarget && message == REFMSG_NODE_FORWARDED)
        return Guarded(inTargetChange_,
                       [&] { return ForwardMessage(changeInt, target, partID, message, true); });
    if (!inOwnerEvent_ && message == REFMSG_WEAK_OWNER_EVENT) {
        partID = PART_ALL;
        return Guarded(inOwnerEvent_,
                       [&] { return ForwardMessage(changeInt, target, partID, message, false); });
    }
    return REF_SUCCEED;
}

int WeakRefOwner::ProcessEnumDependents(DependentEnumProc* proc) {
    if (inEnum_) return 0;
    inEnum_ = true;
    const int result = EnumOwnerDependents(proc);
    OnTargetChanged();
    inEnum_ = false;
    return result;
}

void WeakRefOwner::InitSlots() {
    built_ = true;
    slots_.assign(size_t(std::max(0, NumWeakParams())), Entry());
    for (int i = 0; i < int(slots_.size()); ++i) {
        IParamBlock2* block = GetParamBlock(i);
        const ParamDef* def = block ? block->GetParamDef(GetParamId(i)) : nullptr;
        const int count = !def ? 0 : IsTable(def->type) ? block->Count(def->id) : 1;
        slots_[size_t(i)].SetCount(count);
    }
}

int WeakRefOwner::EntryCount(int i) {
    if (!built_) InitSlots();
    return i >= 0 && i < int(slots_.size()) ? slots_[size_t(i)].Count() : 0;
}

ReferenceTarget* WeakRefOwner::GetRefAt(int i, int j) {
    j = std::max(j, 0);
    if (j >= EntryCount(i)) return nullptr;
    RefTargMonitorRefMaker* monitor = slots_[size_t(i)][j];
    return monitor ? monitor->GetRef() : nullptr;
}

void WeakRefOwner::SetRefAt(ReferenceTarget* target, int i, int j) {
    j = std::max(j, 0);
    if (j >= EntryCount(i)) return;
    RefTargMonitorRefMaker*& monitor = slots_[size_t(i)][j];
    if (monitor)
        monitor->SetRef(target);
    else if (target)
        monitor = new RefTargMonitorRefMaker(*this, target);
    RelabelButton(i);
}

int WeakRefOwner::FindParam(ParamID paramId) {
    const int count = NumWeakParams();
    for (int i = 0; i < count; ++i)
        if (GetParamId(i) == paramId) return i;
    return -1;
}

ReferenceTarget* WeakRefOwner::GetRef(ParamID paramId, int tabIndex) {
    return GetRefAt(FindParam(paramId), tabIndex);
}

void WeakRefOwner::SetRef(ReferenceTarget* target, ParamID paramId, int tabIndex) {
    SetRefAt(target, FindParam(paramId), tabIndex);
}

void WeakRefOwner::InsertEmpty(int i, int start, int count) {
    if (count <= 0 || start > EntryCount(i)) return;
    const std::vector<RefTargMonitorRefMaker*> empty(size_t(count), nullptr);
    slots_[size_t(i)].Insert(start, count, empty.data());
}

void WeakRefOwner::Remove(int i, int start, int count) {
    const int end = std::min(EntryCount(i), start + std::max(count, 0));
    if (start >= end) return;
    Entry& entry = slots_[size_t(i)];
    for (int j = start; j < end; ++j)
        if (RefTargMonitorRefMaker* monitor = entry[j]) {
            monitor->SetRef(nullptr);
            monitor->DeleteThis();
        }
    entry.Delete(start, end - start);
    RelabelButton(i);
}

bool WeakRefOwner::GetPickFilter(int i, INode* node) {
    IParamBlock2* block = GetParamBlock(i);
    const ParamDef* def = block ? block->GetParamDef(GetParamId(i)) : nullptr;
    if (!def || !def->validator) return true;
    PB2Value v;
    v.r = node;
    return def->validator->Validate(v);
}

void WeakRefOwner::RelabelButton(int i) {
    void* dialog = GetDialog(i);
    if (!dialog) return;
    auto* node = dynamic_cast<INode*>(GetRefAt(i, 0));
    GetPanelService().SetButtonText(dialog, GetPickControlId(i),
                                    node ? WStr(node->GetName()) : WStr(GetString(IDS_NONE)));
}

void WeakRefOwner::StartPick(ParamID paramId) {
    const int i = FindParam(paramId);
    if (i < 0) return;
    WeakRefOwnerPickNode& picker = WeakRefOwnerPickNode::Instance();
    picker.SetOwner(this, i);
    GetCOREInterface()->SetPickMode(&picker);
}

bool WeakRefOwner::FlatToSlot(int flat, int& i, int& j) {
    if (!built_) InitSlots();
    if (flat < 0) return false;
    for (i = 0; i < int(slots_.size()); ++i) {
        const int count = slots_[size_t(i)].Count();
        if (flat < count) {
            j = flat;
            return true;
        }
        flat -= count;
    }
    return false;
}

int WeakRefOwner::NumIndirectRefs() {
    if (!built_) InitSlots();
    int total = 0;
    for (const Entry& entry : slots_) total += entry.Count();
    return total;
}

ReferenceTarget* WeakRefOwner::GetIndirectReference(int flat) {
    int i = 0, j = 0;
    return FlatToSlot(flat, i, j) ? GetRefAt(i, j) : nullptr;
}

void WeakRefOwner::SetIndirectReference(int flat, ReferenceTarget* target) {
    int i = 0, j = 0;
    if (FlatToSlot(flat, i, j)) SetRefAt(target, i, j);
}

void WeakRefOwner::CloneWeakRefs(WeakRefOwner& to, RemapDir& remap) {
    if (!built_) InitSlots();
    to.built_ = true;
    to.slots_.assign(slots_.size(), Entry());
    for (size_t i = 0; i < slots_.size(); ++i) {
        const Entry& from = slots_[i];
        Entry& entry = to.slots_[i];
        entry.SetCount(from.Count());
        for (int j = 0; j < from.Count(); ++j) {
            RefTargMonitorRefMaker* monitor = from[j];
            entry[j] = monitor ? monitor->CloneFor(to, remap) : nullptr;
        }
    }
}

WeakRefOwner* GetWeakRefOwner(Animatable* anim) {
    return anim ? static_cast<WeakRefOwner*>(anim->GetInterface(WEAK_REF_OWNER_INTERFACE))
                : nullptr;
}

}  // namespace zorvanta
