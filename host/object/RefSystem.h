#pragma once

#include "host/object/ReferenceTarget.h"

namespace host {

// The reference system's own steps, shared by ReplaceReference, DeleteMe, and undo.
class RefSystem {
public:
    // Points maker's slot i at target: records an undo step when holding; an old target
    // left without dependents is deleted with delOld and handed back to the caller
    // without it.
    static void SetRef(ReferenceMaker* maker, int i, ReferenceTarget* target, bool delOld);
    // Points the slot and keeps the dependency lists, nothing else.
    static void Link(ReferenceMaker* maker, int i, ReferenceTarget* target);
    // A maker that answered REF_AUTO_DELETE (a weak owner whose target went): the
    // reference system deletes it, outside undo.
    static void AutoDelete(ReferenceMaker* maker);
    static RefResult Deliver(ReferenceMaker* maker, const Interval& changeInt,
                             ReferenceTarget* from, PartID partID, RefMessage message,
                             bool propagate) {
        return maker->DeliverMessage(changeInt, from, partID, message, propagate);
    }
};

}  // namespace host
