#pragma once

#include <memory>
#include <vector>

#include "host/core/WStr.h"
#include "host/object/RestoreObj.h"

namespace host {

// The undo system. Every user-level change is one hold: Begin, restore objects put by
// the primitives that change state, Accept with the entry's name. A Begin inside an
// open hold merges into it; Cancel restores and drops what its Begin opened. Undo runs
// an entry's restore objects last to first, Redo first to last.
class Hold {
public:
    Hold() = default;
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold();

    void Begin();
    // Closes the innermost Begin; the outermost one becomes an undo entry named `name`
    // (an entry without restore objects is dropped) and clears the redo stack.
    void Accept(const WStr& name);
    // Closes the innermost Begin, restoring and dropping what was put since it.
    void Cancel();
    // Takes ownership of r: records it when Holding(), deletes it otherwise.
    void Put(RestoreObj* r);
    // A hold is open, not suspended, and no restore is running.
    bool Holding() const;
    void Suspend() { ++suspended_; }
    void Resume();
    bool IsSuspended() const { return suspended_ > 0; }
    // A cancel or an undo is running; isUndo tells which.
    bool Restoring(bool& isUndo) const;
    bool Redoing() const { return state_ == State::Redoing; }
    bool RestoreOrRedoing() const { return state_ != State::Idle; }

    // The undo stack, for the tools and the tests. Undo and Redo refuse (false) while a
    // hold is open or when there is nothing to do.
    bool Undo();
    bool Redo();
    int NumUndoEntries() const { return int(undo_.size()); }
    int NumRedoEntries() const { return int(redo_.size()); }
    // Entry i counted from the most recent (0).
    const WStr& UndoName(int i) const;
    const WStr& RedoName(int i) const;
    // Drops every entry, and any open hold without restoring it.
    void ClearUndo();

private:
    using Records = std::vector<std::unique_ptr<RestoreObj>>;
    struct Entry {
        WStr name;
        Records records;
    };
    enum class State { Idle, Cancelling, Undoing, Redoing };

    void EndHold(Records& records, size_t from);

    Records open_;
    std::vector<size_t> levels_;  // where each open Begin's records start
    std::vector<Entry> undo_, redo_;
    int suspended_ = 0;
    State state_ = State::Idle;
};

// The one hold of the running scene model.
extern Hold theHold;

}  // namespace host
