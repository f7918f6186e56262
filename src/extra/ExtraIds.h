#pragma once

#include <cstdint>

#include "host/object/RefMessages.h"

// The fixed numbers of weak references: the interface id an owner answers and the
// host's private messages it forwards.
namespace zorvanta {

// Animatable::GetInterface(WEAK_REF_OWNER_INTERFACE) gives the object's WeakRefOwner.
inline constexpr uint32_t WEAK_REF_OWNER_INTERFACE = 0x1E847B01;

// Forwarded to the owner's dependents when the target of a weak reference is deleted.
inline constexpr host::RefMessage REFMSG_WEAK_TARGET_DELETED = 0x18F91A03;
// An event of the owner itself, forwarded to its dependents for all parts.
inline constexpr host::RefMessage REFMSG_WEAK_OWNER_EVENT = 0x3071552C;

}  // namespace zorvanta
