#pragma once

#include <cstdint>

// The controllers' fixed numbers: chunk ids of their saved state. They never change.
namespace zorvanta {

// Static controllers: the value (4, 12, 16, 28 or 52 bytes by type) and the locked flag.
inline constexpr uint16_t STATIC_VALUE_CHUNK = 0;
inline constexpr uint16_t STATIC_LOCKED_CHUNK = 1;

// The rig control: its locked flag, one byte.
inline constexpr uint16_t RIG_CONTROL_LOCKED_CHUNK = 0;

}  // namespace zorvanta
