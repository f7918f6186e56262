#pragma once

#include "host/object/Hold.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// Tells a target's dependents of a change when an undo (or a redo) passes it. Reference
// changes undo themselves silently, so an edit of references that dependents cache
// results of is wrapped in ChangeWithNotify, which puts one of these on each side.
class NotifyRestore : public RestoreObj {
public:
    enum When { AFTER_UNDO, AFTER_REDO };
    NotifyRestore(ReferenceTarget* target, When when, RefMessage message)
        : pin_(target), when_(when), message_(message) {}
    void Restore(bool) override {
        if (when_ == AFTER_UNDO) Notify();
    }
    void Redo() override {
        if (when_ == AFTER_REDO) Notify();
    }
    WStr Description() override { return WStr(L"Notify"); }

private:
    void Notify() { pin_.get()->NotifyDependents(FOREVER, PART_ALL, message_); }

    TargetPin pin_;
    When when_;
    RefMessage message_;
};

// Runs change, an edit of target's references, and tells target's dependents with
// message: now, and after the edit is undone or redone.
template <typename Change>
void ChangeWithNotify(ReferenceTarget* target, Change change, RefMessage message = REFMSG_CHANGE) {
    if (theHold.Holding())
        theHold.Put(new NotifyRestore(target, NotifyRestore::AFTER_UNDO, message));
    change();
    if (theHold.Holding())
        theHold.Put(new NotifyRestore(target, NotifyRestore::AFTER_REDO, message));
    target->NotifyDependents(FOREVER, PART_ALL, message);
}

}  // namespace host
