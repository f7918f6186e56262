#pragma once

#include "host/core/WStr.h"

namespace host {

// One step of an undo entry. The hold owns it from Put on.
class RestoreObj {
public:
    virtual ~RestoreObj() = default;
    // Puts the state from before the step back. With isUndo (a real undo, not a
    // cancelled hold) the present state is saved first, for Redo.
    virtual void Restore(bool isUndo) = 0;
    // Puts the state from after the step back.
    virtual void Redo() = 0;
    // Called when the hold that holds it is accepted or cancelled: a class that puts
    // one restore object per hold clears its A_HELD flag here.
    virtual void EndHold() {}
    virtual int Size() { return 1; }
    virtual WStr Description() { return WStr(L"RestoreObj"); }
};

}  // namespace host
