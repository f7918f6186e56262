#pragma once

#include <array>
#include <span>

#include "rig/RigIds.h"

namespace zorvanta {

// One value slot of a component row: a spinner with its label and parameter.
struct ComponentSlot {
    const wchar_t* label = nullptr;  // null: the slot is unused
    RigParam param = RIG_NODES;
};

// One row of the structure panel: a component with up to four counts, one check box
// and one "use bones" check box that enables one of the value slots while checked.
struct ComponentRow {
    RigComponent id;
    const wchar_t* name;
    std::array<ComponentSlot, 4> slots;
    ComponentSlot toggle;
    RigParam bonesToggle = RIG_NODES;  // RIG_NODES: the row has none
    int bonesSlot = -1;                // zero-based slot that bonesToggle enables
};

// The 17 rows in panel order. Component 11 (face points without a structure of their
// own) has no row.
std::span<const ComponentRow> ComponentRows();
// The row of component id, or null.
const ComponentRow* FindComponentRow(int id);
// Whether slot (zero-based) of row is enabled: always, unless the row's bones toggle
// names it and useBones (the toggle's value) is off.
bool SlotEnabled(const ComponentRow& row, int slot, bool useBones);

// Whether parameter id is shown for a rig of the given type: the front cannon twists
// only on quadrupeds, the cannon twists only on the four-legged types, the fangs only
// on insects.
bool ParamVisible(RigParam id, int type);

// The structure counts a new rig type starts with.
struct TypeStructureDefaults {
    int armPairs = 1;
    int legPairs = 1;
    int tails = 0;
    int ponytails = 0;
    int fangs = 0;
    int fingers = 5;
    int fingerBones = 3;
};
TypeStructureDefaults StructureDefaultsFor(int type);
// The parameters those defaults are written to, with the value of each, in order.
std::array<std::pair<RigParam, int>, 7> StructureDefaultValues(int type);

}  // namespace zorvanta
