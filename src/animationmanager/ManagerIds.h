#pragma once

#include "host/object/PBAccessor.h"

// The animation manager modifier's fixed numbers: the parameter ids of its block, which
// scene files store and the controllers read. They never change.
namespace zorvanta {

enum AnimationManagerParam : host::ParamID {
    AM_TAGS = 0,
    AM_ROOT = 2,
    AM_MIRROR_POS_AXIS = 3,
    AM_MIRROR_ROT_AXIS = 4,
    AM_USE_MIRROR_POS = 5,
    AM_USE_MIRROR_ROT = 6,
    AM_USE_MIRROR_NODE = 7,
    AM_MIRROR_NODE = 8,
    AM_USE_RETARGET_SIZE = 9,
    AM_RETARGET_SIZE = 10,
};

}  // namespace zorvanta
