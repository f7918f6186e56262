#pragma once

#include "host/core/WStr.h"

namespace zorvanta {

// The short name of a rig part: "[r_|l_]<base>[_<index+1>][_<sub+1>]", with "r_" for
// side 0, "l_" for side 1 and no prefix for other sides; a negative index or sub is left
// out. Guide points and built nodes share it ("r_upper_arm", "spine_2",
// "l_finger_1_2"); the animation manager finds controls by it.
host::WStr RigShortName(const wchar_t* base, int side = -1, int index = -1, int sub = -1);

// A built node's name: rig name, then "_<group>" when a group word is given ("bone",
// "helper"), then "_<short name>": "Rig_bone_r_upper_arm".
host::WStr RigNodeName(const host::WStr& rigName, const wchar_t* group,
                       const host::WStr& shortName);

}  // namespace zorvanta
