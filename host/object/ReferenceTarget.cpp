#include "host/object/ReferenceTarget.h"

#include <algorithm>
#include <cassert>

#include "host/object/Hold.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/RefSystem.h"
#include "host/object/RemapDir.h"

namespace host {

ReferenceTarget::~ReferenceTarget() {
    assert(NumDependents() == 0);
}

ReferenceTarget* ReferenceTarget::Clone(RemapDir&) {
    return nullptr;
}

void ReferenceTarget::BaseClone(ReferenceTarget* from, ReferenceTarget* to, RemapDir& remap) {
    if (!from || !to || from == to) return;
    // The flag word is not copied: its bits say what is happening to this object now
    // (held by the open hold, reached by a loop probe), which a new object is not.
    if (ICustAttribContainer* attribs = from->GetCustAttribContainer()) {
        auto* copy = dynamic_cast<ICustAttribContainer*>(remap.CloneRef(attribs));
        if (copy && to->AdoptCustAttribContainer(copy)) copy->owner_ = to;
    }
    to->CopyPropertiesFrom(*from);
}

int ReferenceTarget::NumDependents() const {
    return int(std::count_if(dependents_.begin(), dependents_.end(),
                             [](const Dependent& d) { return d.maker != nullptr; }));
}

bool ReferenceTarget::HasStrongDependents() const {
    return std::any_of(dependents_.begin(), dependents_.end(),
                       [](const Dependent& d) { return d.maker != nullptr && d.strong; });
}

void ReferenceTarget::AddDependent(ReferenceMaker* maker) {
    const bool strong = maker->IsRealDependency(this);
    if (strong) ownedByRefs_ = true;
    for (Dependent& d : dependents_)
        if (d.maker == maker) {
            ++d.slots;
            return;
        }
    dependents_.push_back({maker, 1, strong});
}

void ReferenceTarget::RemoveDependent(ReferenceMaker* maker) {
    for (size_t k = 0; k < dependents_.size(); ++k) {
        Dependent& d = dependents_[k];
        if (d.maker != maker || --d.slots > 0) continue;
        // While a notification walks the list, leave a hole instead of moving entries.
        if (iterating_ > 0) {
            d.maker = nullptr;
            holes_ = true;
        } else {
            dependents_.erase(dependents_.begin() + std::ptrdiff_t(k));
        }
        return;
    }
}

void ReferenceTarget::Compact() {
    if (!holes_) return;
    std::erase_if(dependents_, [](const Dependent& d) { return d.maker == nullptr; });
    holes_ = false;
}

RefResult ReferenceTarget::NotifyDependents(const Interval& changeInt, PartID partID,
                                            RefMessage message, SClass_ID sclass, bool propagate) {
    if (RefMsgsDisabled()) return REF_SUCCEED;
    Pin();
    ++iterating_;
    // Dependents added meanwhile are not reached; removed ones leave holes.
    const size_t count = dependents_.size();
    for (size_t k = 0; k < count; ++k) {
        ReferenceMaker* maker = dependents_[k].maker;
        if (!maker || (sclass != NOTIFY_ALL && maker->SuperClassID() != sclass)) continue;
        if (RefSystem::Deliver(maker, changeInt, this, partID, message, propagate) ==
            REF_AUTO_DELETE)
            RefSystem::AutoDelete(maker);
    }
    if (--iterating_ == 0) Compact();
    Unpin();
    return REF_SUCCEED;
}

void ReferenceTarget::DeleteMe() {
    if (deleting_) return;
    Pin();
    deleting_ = true;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_TARGET_DELETED, NOTIFY_ALL, false);
    while (HasDependents()) {
        auto live = std::find_if(dependents_.begin(), dependents_.end(),
                                 [](const Dependent& d) { return d.maker != nullptr; });
        ReferenceMaker* maker = live->maker;
        for (int i = 0; i < maker->NumRefs(); ++i)
            if (maker->GetReference(i) == this) RefSystem::SetRef(maker, i, nullptr, false);
        assert(std::none_of(dependents_.begin(), dependents_.end(),
                            [maker](const Dependent& d) { return d.maker == maker; }));
        RemoveDependent(maker);  // a maker that lied about its slots must not loop forever
    }
    DeleteAllRefsFromMe();
    deleting_ = false;
    ownedByRefs_ = true;
    Unpin();
}

void ReferenceTarget::Unpin() {
    assert(pins_ > 0);
    if (--pins_ > 0 || !ownedByRefs_ || !OwnedByDependents() || deleting_ || iterating_ > 0 ||
        HasStrongDependents())
        return;
    Destroy();
}

void ReferenceTarget::Destroy() {
    Pin();  // never released: the object ends here
    theHold.Suspend();
    DeleteMe();
    theHold.Resume();
    DeleteThis();
}

bool ReferenceTarget::EnumDependents(DependentEnumProc* proc,
                                     std::vector<ReferenceMaker*>& visited) {
    DependentIterator it(this);
    while (ReferenceMaker* maker = it.Next()) {
        if (std::find(visited.begin(), visited.end(), maker) != visited.end()) continue;
        visited.push_back(maker);
        const DepEnumResult r = proc->proc(maker);
        if (r == DEP_ENUM_HALT) return false;
        if (r == DEP_ENUM_SKIP || !maker->IsRefTarget()) continue;
        if (!static_cast<ReferenceTarget*>(maker)->EnumDependents(proc, visited)) return false;
    }
    return true;
}

void ReferenceTarget::DoEnumDependents(DependentEnumProc* proc) {
    std::vector<ReferenceMaker*> visited;
    EnumDependents(proc, visited);
}

void ReferenceTarget::TransferReferences(ReferenceTarget* from, bool deleteOld) {
    if (!from || from == this) return;
    const TargetPin keep(from);
    std::vector<ReferenceMaker*> makers;
    DependentIterator it(from);
    while (ReferenceMaker* maker = it.Next()) makers.push_back(maker);
    for (ReferenceMaker* maker : makers)
        for (int i = 0; i < maker->NumRefs(); ++i)
            if (maker->GetReference(i) == from) RefSystem::SetRef(maker, i, this, false);
    if (deleteOld && !from->HasStrongDependents()) from->DeleteMe();
}

RefResult ReferenceTarget::TestForLoop(const Interval&, ReferenceMaker* maker) {
    if (maker == this) return REF_FAIL;
    if (!maker->IsRefTarget()) return REF_SUCCEED;  // nothing can depend on a plain maker
    struct Finder : DependentEnumProc {
        ReferenceMaker* wanted;
        bool found = false;
        explicit Finder(ReferenceMaker* w) : wanted(w) {}
        DepEnumResult proc(ReferenceMaker* m) override {
            found = m == wanted;
            return found ? DEP_ENUM_HALT : DEP_ENUM_CONTINUE;
        }
    } finder(this);
    static_cast<ReferenceTarget*>(maker)->DoEnumDependents(&finder);
    return finder.found ? REF_FAIL : REF_SUCCEED;
}

ReferenceMaker* DependentIterator::Next() {
    while (next_ < target_->dependents_.size()) {
        ReferenceMaker* maker = target_->dependents_[next_++].maker;
        if (maker) return maker;
    }
    return nullptr;
}

}  // namespace host
