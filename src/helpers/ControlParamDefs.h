#pragma once

#include <vector>

#include "host/object/ParamBlockDesc2.h"

namespace zorvanta {

// The parameters of the control helper's block, in id order: the one table that the
// control helper's block and the control shape's block (which adds its scale) are
// made from, so that both objects keep the same ids, names, defaults, ranges and labels.
std::vector<host::ParamDef> ControlParamDefs();

}  // namespace zorvanta
