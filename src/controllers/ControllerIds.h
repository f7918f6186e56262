#pragma once

#include <cstdint>

#include "host/object/PBAccessor.h"

// The controllers' fixed numbers: chunk ids of their saved state and parameter ids of
// their blocks. Scene files store them; they never change.
namespace zorvanta {

// Static controllers: the value (4, 12, 16, 28 or 52 bytes by type) and the locked flag.
inline constexpr uint16_t STATIC_VALUE_CHUNK = 0;
inline constexpr uint16_t STATIC_LOCKED_CHUNK = 1;

// The rig control: its locked flag, one byte.
inline constexpr uint16_t RIG_CONTROL_LOCKED_CHUNK = 0;
// The Euler rotation controller: the locked flag (one byte), the order (int32) and the
// joint parameters the IK solvers read.
inline constexpr uint16_t ROTATION_XYZ_LOCKED_CHUNK = 0;
inline constexpr uint16_t ROTATION_XYZ_ORDER_CHUNK = 1;
inline constexpr uint16_t ROTATION_XYZ_JOINT_CHUNK = 2;

// The rotation space controller: the locked flag (one byte).
inline constexpr uint16_t ROTATION_SPACE_LOCKED_CHUNK = 0;

// The rotation space controller's block "params" (id 0).
enum RotationSpaceParam : host::ParamID {
    RS_TARGET = 0,
    RS_WEIGHT = 1,
    RS_KEEP_INITIAL_OFFSET = 2,
    RS_INITIAL_OFFSET = 3,
};

}  // namespace zorvanta
