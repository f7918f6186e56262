#include "rig/StructureAccessor.h"

#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

// The one switch: the scene model runs on one thread.
bool gSelectionEffect = true;

}  // namespace

StructureAccessor& StructureAccessor::Instance() {
    static StructureAccessor accessor;
    return accessor;
}

void StructureAccessor::Set(PB2Value& v, ReferenceMaker* owner, ParamID, int, TimeValue) {
    if (auto* rig = dynamic_cast<RigSystem*>(owner)) rig->SelectedComponentChanging(v.i);
}

StructureAccessor::SelectionEffectOff::SelectionEffectOff() : was_(gSelectionEffect) {
    gSelectionEffect = false;
}

StructureAccessor::SelectionEffectOff::~SelectionEffectOff() {
    gSelectionEffect = was_;
}

bool StructureAccessor::SelectionEffectOn() {
    return gSelectionEffect;
}

}  // namespace zorvanta
