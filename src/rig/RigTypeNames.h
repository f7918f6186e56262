#pragma once

#include "host/object/FPInterfaceDesc.h"
#include "rig/RigIds.h"

namespace zorvanta {

// The rig types' script names, by type number (the interface's type enumeration).
inline constexpr const wchar_t* kRigTypeNames[kRigTypeCount] = {
    L"Biped",     L"Hands",    L"Feet",      L"Arms",     L"Legs",      L"Spine",    L"Head",
    L"Tail",      L"Ears",     L"FrontLegs", L"BackLegs", L"Quadruped", L"Minotaur", L"Centaur",
    L"FrontPaws", L"BackPaws", L"InsectLeg", L"Insect",   L"Face",      L"Ant",      L"Bird",
    L"Octopus",   L"Snake",    L"Fish",      L"Claws",    L"BirdLeg",   L"Wing",     L"Tentacle",
};

// The type whose script name is name, compared without regard to case, or -1.
inline int FindRigType(const wchar_t* name) {
    for (int type = 0; type < kRigTypeCount; ++type)
        if (host::SameName(kRigTypeNames[type], name)) return type;
    return -1;
}

}  // namespace zorvanta
