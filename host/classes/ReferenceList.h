#pragma once

#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

#include "host/classes/ChunkIO.h"
#include "host/object/Hold.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// The growing part of a maker's references: entries that each hold one reference slot
// (owner slots first, first + 1, ...) and a Data value beside it (a name and weight, a
// weight, a start time). Lists of sub-controllers and lists of target nodes keep their
// entries here, so that every insertion and deletion is undone the same way.
//
// Undo: the slots change only through the owner's ReplaceReference, which records
// itself; the entry data (and with it the number of slots) is recorded by a restore
// object of this class. Growing records the data before the references move and
// shrinking records it after, so that undo and redo always resize the list while the
// slots that come or go are empty.
//
// The owner forwards NumRefs, GetReference and SetReference for its slots from first on.
template <class Data>
class ReferenceList {
public:
    ReferenceList(ReferenceTarget* owner, int first) : owner_(owner), first_(first) {}
    ReferenceList(const ReferenceList&) = delete;
    ReferenceList& operator=(const ReferenceList&) = delete;

    int Count() const { return int(data_.size()); }
    bool Valid(int i) const { return i >= 0 && i < Count(); }
    ReferenceTarget* Target(int i) const { return Valid(i) ? slots_[size_t(i)] : nullptr; }
    const Data& DataAt(int i) const { return data_[size_t(i)]; }
    // The first entry from `from` on that refers to target, or -1.
    int IndexOf(const ReferenceTarget* target, int from = 0) const;

    // Makes entry `at` (0..Count()) refer to target with data, moving the later entries
    // up; recorded when holding.
    void Insert(int at, ReferenceTarget* target, const Data& data);
    void Append(ReferenceTarget* target, const Data& data) { Insert(Count(), target, data); }
    // Removes entry i, moving the later entries down; recorded when holding. A target
    // that nothing else owns goes with it (kept by the undo records while they last).
    void Delete(int i);
    // Replaces entry i's data; recorded when holding.
    void SetData(int i, const Data& data);

    // The owner's slot access, for its GetReference and SetReference.
    bool OwnsSlot(int slot) const { return Valid(slot - first_); }
    ReferenceTarget* Slot(int slot) const { return slots_[size_t(slot - first_)]; }
    void SetSlot(int slot, ReferenceTarget* target) { slots_[size_t(slot - first_)] = target; }

    // Scene files keep the entry data beside the owner's references. A list made for
    // loading takes the data read, which sizes it with every slot empty for the scene
    // reader to set afterwards; nothing is recorded or sent.
    const std::vector<Data>& AllData() const { return data_; }
    void SetLoadedData(std::vector<Data> data);
    // Plain entry data (weights, times) as one chunk holding their table.
    void SaveTable(ISave* isave, uint16_t id) const;
    IOResult LoadTable(ILoad* iload);

private:
    class DataRestore;

    void Record();
    // Entry data (and the slot count) as a restore object puts it back.
    void Load(const std::vector<Data>& data);
    void Changed();

    ReferenceTarget* owner_;
    int first_;
    std::vector<Data> data_;
    std::vector<ReferenceTarget*> slots_;
};

// The entry data before and after one change of the list.
template <class Data>
class ReferenceList<Data>::DataRestore : public RestoreObj {
public:
    explicit DataRestore(ReferenceList* list)
        : pin_(list->owner_), list_(list), before_(list->data_), after_(before_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = list_->data_;
        list_->Load(before_);
    }
    void Redo() override { list_->Load(after_); }
    WStr Description() override { return WStr(L"List Entries"); }

private:
    TargetPin pin_;  // the owner, and with it the list
    ReferenceList* list_;
    std::vector<Data> before_, after_;
};

template <class Data>
int ReferenceList<Data>::IndexOf(const ReferenceTarget* target, int from) const {
    for (int i = std::max(from, 0); i < Count(); ++i)
        if (slots_[size_t(i)] == target) return i;
    return -1;
}

template <class Data>
void ReferenceList<Data>::Record() {
    if (theHold.Holding()) theHold.Put(new DataRestore(this));
}

template <class Data>
void ReferenceList<Data>::Insert(int at, ReferenceTarget* target, const Data& data) {
    assert(at >= 0 && at <= Count());
    Record();
    data_.insert(data_.begin() + at, data);
    slots_.push_back(nullptr);
    for (int k = Count() - 1; k > at; --k) owner_->ReplaceReference(first_ + k, Target(k - 1));
    owner_->ReplaceReference(first_ + at, target);
    Changed();
}

template <class Data>
void ReferenceList<Data>::Delete(int i) {
    if (!Valid(i)) return;
    for (int k = i; k + 1 < Count(); ++k) owner_->ReplaceReference(first_ + k, Target(k + 1));
    owner_->ReplaceReference(first_ + Count() - 1, nullptr);
    Record();
    data_.erase(data_.begin() + i);
    slots_.pop_back();
    Changed();
}

template <class Data>
void ReferenceList<Data>::SetData(int i, const Data& data) {
    if (!Valid(i)) return;
    Record();
    data_[size_t(i)] = data;
    Changed();
}

template <class Data>
void ReferenceList<Data>::Load(const std::vector<Data>& data) {
    assert(std::all_of(slots_.begin() + std::min(slots_.size(), data.size()), slots_.end(),
                       [](ReferenceTarget* t) { return t == nullptr; }));
    data_ = data;
    slots_.resize(data.size(), nullptr);
    Changed();
}

template <class Data>
void ReferenceList<Data>::SetLoadedData(std::vector<Data> data) {
    assert(std::all_of(slots_.begin(), slots_.end(), [](ReferenceTarget* t) { return !t; }));
    data_ = std::move(data);
    slots_.assign(data_.size(), nullptr);
}

template <class Data>
void ReferenceList<Data>::SaveTable(ISave* isave, uint16_t id) const {
    isave->BeginChunk(id);
    WriteTable(isave, data_);
    isave->EndChunk();
}

template <class Data>
IOResult ReferenceList<Data>::LoadTable(ILoad* iload) {
    std::vector<Data> data;
    if (ReadTable(iload, data) != IO_OK) return IO_ERROR;
    SetLoadedData(std::move(data));
    return IO_OK;
}

template <class Data>
void ReferenceList<Data>::Changed() {
    owner_->NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    owner_->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

}  // namespace host
