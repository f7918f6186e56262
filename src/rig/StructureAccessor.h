#pragma once

#include "host/object/PBAccessor.h"

namespace zorvanta {

// Bound to selected_component: the rig object copies the value and, at the point
// level, selects the points of that component. Code that writes the parameter to follow
// a selection it made itself turns that effect off with SelectionEffectOff.
class StructureAccessor : public host::PBAccessor {
public:
    static StructureAccessor& Instance();
    void Set(host::PB2Value& v, host::ReferenceMaker* owner, host::ParamID id, int tab,
             host::TimeValue t) override;

    // While one lives, a write of selected_component changes no point selection.
    class SelectionEffectOff {
    public:
        SelectionEffectOff();
        ~SelectionEffectOff();
        SelectionEffectOff(const SelectionEffectOff&) = delete;
        SelectionEffectOff& operator=(const SelectionEffectOff&) = delete;

    private:
        bool was_;
    };
    static bool SelectionEffectOn();
};

}  // namespace zorvanta
