#pragma once

#include "host/core/Interval.h"
#include "host/object/Animatable.h"
#include "host/object/IOResult.h"
#include "host/object/RefMessages.h"

namespace host {

class ReferenceTarget;
class ISave;
class ILoad;

// An object that refers to others. Its reference slots are class-implemented
// (NumRefs, GetReference, SetReference); ReplaceReference is the one way logic changes
// them: it keeps the dependency lists, records an undo step when holding, and deletes
// an old target that nothing refers to any more.
class ReferenceMaker : public Animatable {
public:
    virtual int NumRefs() { return 0; }
    virtual ReferenceTarget* GetReference(int) { return nullptr; }

    RefResult ReplaceReference(int i, ReferenceTarget* target, bool delOld = true);
    RefResult DeleteReference(int i) { return ReplaceReference(i, nullptr); }
    // Cuts every reference from this object; old targets left without dependents go.
    void DeleteAllRefsFromMe();

    // A message from a target this object refers to. The answer REF_STOP keeps it from
    // being passed on to this object's own dependents.
    virtual RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget,
                                       PartID& partID, RefMessage message, bool propagate);

    // The object's own state, as chunks of its class's ids. The scene writer saves the
    // references itself, so neither writes them.
    virtual IOResult Save(ISave*) { return IO_OK; }
    // Reads what Save wrote, into an object made for loading, before the scene reader
    // sets its references. Values are restored, not edited: nothing is recorded for undo
    // and no accessor runs.
    virtual IOResult Load(ILoad*) { return IO_OK; }

    virtual bool IsRefTarget() { return false; }
    // False for a weak reference (a monitor): it neither owns its target nor keeps it
    // alive, and its reference changes are not recorded for undo.
    virtual bool IsRealDependency(ReferenceTarget*) { return true; }

protected:
    // Stores target in slot i. Only the reference system calls it: ReplaceReference,
    // undo and redo, and the scene reader.
    virtual void SetReference(int, ReferenceTarget*) {}

private:
    friend class ReferenceTarget;
    friend class RefSystem;
    // Delivers a message: the loop probe's mark, the class's handler, then propagation.
    RefResult DeliverMessage(const Interval& changeInt, ReferenceTarget* hTarget, PartID partID,
                             RefMessage message, bool propagate);
};

// The global switch: between DisableRefMsgs and EnableRefMsgs no message is delivered.
void DisableRefMsgs();
void EnableRefMsgs();
bool RefMsgsDisabled();

}  // namespace host
