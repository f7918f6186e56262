#pragma once

#include "host/object/Hold.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// Undo and redo of an object's whole state, saved and loaded by two of its members:
// the state before the change is saved when the record is made, the state after it when
// the change is undone. The record keeps the object alive.
template <class Target, class State>
class SnapshotRestore : public RestoreObj {
public:
    using SaveFn = State (Target::*)() const;
    using LoadFn = void (Target::*)(const State&);

    SnapshotRestore(Target* target, SaveFn save, LoadFn load, const wchar_t* name)
        : pin_(target),
          target_(target),
          save_(save),
          load_(load),
          name_(name),
          before_((target->*save)()),
          after_(before_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = (target_->*save_)();
        (target_->*load_)(before_);
    }
    void Redo() override { (target_->*load_)(after_); }
    WStr Description() override { return WStr(name_); }

private:
    TargetPin pin_;
    Target* target_;
    SaveFn save_;
    LoadFn load_;
    const wchar_t* name_;
    State before_, after_;
};

}  // namespace host
