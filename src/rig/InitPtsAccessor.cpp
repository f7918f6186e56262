#include "rig/InitPtsAccessor.h"

#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

InitPtsAccessor& InitPtsAccessor::Instance() {
    static InitPtsAccessor accessor;
    return accessor;
}

void InitPtsAccessor::Set(PB2Value& v, ReferenceMaker* owner, ParamID id, int, TimeValue) {
    auto* rig = dynamic_cast<RigSystem*>(owner);
    if (!rig) return;
    if (id == RIG_HELPER_SIZE)
        rig->HelperSizeChanging(v.f);
    else
        rig->ParamChanging(id, v.i);
}

}  // namespace zorvanta
