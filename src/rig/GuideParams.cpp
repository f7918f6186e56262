#include "rig/GuideParams.h"

#include "host/object/IParamBlock2.h"
#include "host/object/ParamBlockDesc2.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

GuideParams GuideParams::Read(IParamBlock2* pb) {
    if (!pb) return Defaults();
    GuideParams params;
    for (int i = 0; i < pb->NumParams(); ++i) {
        const ParamID id = pb->IndexToID(i);
        if (KindOf(pb->GetParamDef(id)->type) == ValueKind::Int && id < kRigParamIdCount)
            params.values[size_t(id)] = pb->GetInt(id);
    }
    params.helperSize = pb->GetFloat(RIG_HELPER_SIZE);
    return params;
}

GuideParams GuideParams::Defaults() {
    GuideParams params;
    const ParamBlockDesc2* desc = RigSystem::BlockDesc();
    for (int i = 0; desc && i < desc->Count(); ++i) {
        const ParamDef& def = desc->Param(i);
        if (KindOf(def.type) == ValueKind::Int && def.id < kRigParamIdCount)
            params.values[size_t(def.id)] = def.def.i;
    }
    return params;
}

}  // namespace zorvanta
