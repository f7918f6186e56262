#pragma once

#include "host/object/PBAccessor.h"

namespace zorvanta {

// Bound to the rig block's parameters that shape the template (type, side, the
// structure counts and toggles), its size and its colours: tells the rig object the
// value about to be stored, so that the guide points are rebuilt from it.
class InitPtsAccessor : public host::PBAccessor {
public:
    static InitPtsAccessor& Instance();
    void Set(host::PB2Value& v, host::ReferenceMaker* owner, host::ParamID id, int tab,
             host::TimeValue t) override;
};

}  // namespace zorvanta
