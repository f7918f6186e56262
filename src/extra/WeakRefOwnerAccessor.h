#pragma once

#include "host/object/PBAccessor.h"

namespace zorvanta {

// The accessor of every weak node parameter: reads come from the owner's weak slot,
// writes and table edits go to it. The owner is found by its WeakRefOwner interface;
// an owner without one is left alone.
class WeakRefOwnerAccessor : public host::PBAccessor {
public:
    // The one accessor the parameter definitions share.
    static WeakRefOwnerAccessor& Instance();

    void Get(host::PB2Value& v, host::ReferenceMaker* owner, host::ParamID id, int tabIndex,
             host::TimeValue t, host::Interval& valid) override;
    void Set(host::PB2Value& v, host::ReferenceMaker* owner, host::ParamID id, int tabIndex,
             host::TimeValue t) override;
    void TabChanged(host::tab_changes change, host::ReferenceMaker* owner, host::ParamID id,
                    int tabIndex, int count) override;
};

}  // namespace zorvanta
