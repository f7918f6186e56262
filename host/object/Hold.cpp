#include "host/object/Hold.h"

#include <cassert>

namespace host {

Hold theHold;

Hold::~Hold() {
    ClearUndo();
}

void Hold::Begin() {
    levels_.push_back(open_.size());
}

void Hold::EndHold(Records& records, size_t from) {
    for (size_t i = from; i < records.size(); ++i) records[i]->EndHold();
}

void Hold::Accept(const WStr& name) {
    if (levels_.empty()) return;
    levels_.pop_back();
    if (!levels_.empty()) return;  // merged into the outer hold
    if (open_.empty()) return;
    EndHold(open_, 0);
    undo_.push_back({name, std::move(open_)});
    open_.clear();
    redo_.clear();
}

void Hold::Cancel() {
    if (levels_.empty()) return;
    const size_t from = levels_.back();
    levels_.pop_back();
    state_ = State::Cancelling;
    for (size_t i = open_.size(); i-- > from;) open_[i]->Restore(false);
    state_ = State::Idle;
    EndHold(open_, from);
    open_.resize(from);
}

void Hold::Put(RestoreObj* r) {
    std::unique_ptr<RestoreObj> owned(r);
    if (owned && Holding()) open_.push_back(std::move(owned));
}

bool Hold::Holding() const {
    return !levels_.empty() && suspended_ == 0 && state_ == State::Idle;
}

void Hold::Resume() {
    assert(suspended_ > 0);
    if (suspended_ > 0) --suspended_;
}

bool Hold::Restoring(bool& isUndo) const {
    isUndo = state_ == State::Undoing;
    return state_ == State::Cancelling || state_ == State::Undoing;
}

bool Hold::Undo() {
    if (!levels_.empty() || undo_.empty() || state_ != State::Idle) return false;
    Entry entry = std::move(undo_.back());
    undo_.pop_back();
    state_ = State::Undoing;
    for (size_t i = entry.records.size(); i-- > 0;) entry.records[i]->Restore(true);
    state_ = State::Idle;
    redo_.push_back(std::move(entry));
    return true;
}

bool Hold::Redo() {
    if (!levels_.empty() || redo_.empty() || state_ != State::Idle) return false;
    Entry entry = std::move(redo_.back());
    redo_.pop_back();
    state_ = State::Redoing;
    for (auto& record : entry.records) record->Redo();
    state_ = State::Idle;
    undo_.push_back(std::move(entry));
    return true;
}

const WStr& Hold::UndoName(int i) const {
    return undo_.at(undo_.size() - 1 - size_t(i)).name;
}

const WStr& Hold::RedoName(int i) const {
    return redo_.at(redo_.size() - 1 - size_t(i)).name;
}

void Hold::ClearUndo() {
    // Dropping records may delete objects they kept alive; clear the lists first so
    // that nothing deleted meanwhile can reach a half-cleared stack.
    std::vector<Entry> undo = std::move(undo_), redo = std::move(redo_);
    Records open = std::move(open_);
    undo_.clear();
    redo_.clear();
    open_.clear();
    levels_.clear();
    open.clear();
    redo.clear();
    undo.clear();
}

}  // namespace host
