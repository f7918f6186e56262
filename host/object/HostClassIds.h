#pragma once

#include "host/object/ClassId.h"

namespace host {

// The class ids of the host's own classes. Scene files store them, and the default
// controllers are chosen among them, so they live here, as data, for every layer.
inline constexpr Class_ID BEZIER_FLOAT_CLASS_ID(0x2007, 0);
inline constexpr Class_ID BEZIER_POSITION_CLASS_ID(0x2008, 0);
inline constexpr Class_ID POSITION_XYZ_CLASS_ID(0x118F7E02, 0xFFEE238A);
inline constexpr Class_ID EULER_XYZ_CLASS_ID(0x2012, 0);
inline constexpr Class_ID SCALE_XYZ_CLASS_ID(0x118F7C01, 0xFEEE238B);
inline constexpr Class_ID BEZIER_SCALE_CLASS_ID(0x2010, 0);
inline constexpr Class_ID PRS_CLASS_ID(0x2005, 0);
inline constexpr Class_ID TCB_FLOAT_CLASS_ID(0x442311, 0);
inline constexpr Class_ID TCB_POSITION_CLASS_ID(0x442312, 0);
inline constexpr Class_ID TCB_ROTATION_CLASS_ID(0x442313, 0);
inline constexpr Class_ID TCB_SCALE_CLASS_ID(0x442315, 0);

}  // namespace host
