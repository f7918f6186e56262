#include "extra/WeakRefOwnerAccessor.h"

#include <algorithm>

#include "extra/WeakRefOwner.h"

namespace zorvanta {

using namespace host;

WeakRefOwnerAccessor& WeakRefOwnerAccessor::Instance() {
    static WeakRefOwnerAccessor accessor;
    return accessor;
}

void WeakRefOwnerAccessor::Get(PB2Value& v, ReferenceMaker* owner, ParamID id, int tabIndex,
                               TimeValue, Interval&) {
    if (WeakRefOwner* weak = GetWeakRefOwner(owner)) v.r = weak->GetRef(id, tabIndex);
}

void WeakRefOwnerAccessor::Set(PB2Value& v, ReferenceMaker* owner, ParamID id, int tabIndex,
                               TimeValue) {
    WeakRefOwner* weak = GetWeakRefOwner(owner);
    if (!weak) return;
    if (!weak->SlotsBuilt()) weak->InitSlots();
    weak->SetRef(v.r, id, tabIndex);
}

void WeakRefOwnerAccessor::TabChanged(tab_changes change, ReferenceMaker* owner, ParamID id,
                                      int tabIndex, int count) {
    WeakRefOwner* weak = GetWeakRefOwner(owner);
    if (!weak) return;
    if (!weak->SlotsBuilt()) weak->InitSlots();
    const int i = weak->FindParam(id);
    if (i < 0) return;
    const int start = std::max(tabIndex, 0);
    switch (change) {
        case tab_insert:
            // New elements hold no node yet: the block inserts them with the default. A
            // start past the entry's end inserts nothing.
            weak->InsertEmpty(i, start, count);
            break;
        case tab_append:
            weak->InsertEmpty(i, weak->EntryCount(i), count);
            break;
        case tab_delete:
            weak->Remove(i, start, count);
            break;
        case tab_ref_deleted:
            weak->SetRef(nullptr, id, tabIndex);
            break;
        case tab_setcount: {
            const int have = weak->EntryCount(i);
            if (count > have)
                weak->InsertEmpty(i, have, count - have);
            else
                weak->Remove(i, count, have - count);
            break;
        }
    }
}

}  // namespace zorvanta
