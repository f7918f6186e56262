#pragma once

#include <cstdint>

// The numbers of the reference system: messages, parts, results and animatable flag
// bits. Numbers that scene files, scripts or toolkit code rely on are fixed; the others
// were chosen once, here, clear of the fixed ones.
namespace host {

using RefMessage = uint32_t;
using PartID = uint32_t;

// Messages.
inline constexpr RefMessage REFMSG_TARGET_DELETED = 0x20;
inline constexpr RefMessage REFMSG_CHANGE = 0x30;  // a value changed: dependents drop caches
inline constexpr RefMessage REFMSG_NODE_NAMECHANGE = 0x31;
inline constexpr RefMessage REFMSG_SUBANIM_STRUCTURE_CHANGED = 0x32;
inline constexpr RefMessage REFMSG_CONTROLREF_CHANGE = 0x33;
inline constexpr RefMessage REFMSG_NODE_LINK = 0x34;
inline constexpr RefMessage REFMSG_NODE_WSCACHE_UPDATED = 0x35;
inline constexpr RefMessage REFMSG_REDISPLAY = 0x102;    // 258: after a change that needs a redraw
inline constexpr RefMessage REFMSG_LOOPTEST = 0x107;     // 263: marks every dependent reached
inline constexpr RefMessage REFMSG_LAYER_QUERY = 0x108;  // 264: partID carries an int* answer
inline constexpr RefMessage REFMSG_NODE_FORWARDED = 0x112;  // always forwarded by weak owners

// Parts (channels) a message concerns.
inline constexpr PartID PART_GEOM = 0x1;
inline constexpr PartID PART_TOPO = 0x2;
inline constexpr PartID PART_DISPLAY = 0x70;  // sub-object selection and display
inline constexpr PartID PART_TM = 0x1000;
inline constexpr PartID PART_ALL = 0x800037FF;

// What a dependent answers to a message.
enum RefResult : int {
    REF_FAIL = 0,
    REF_SUCCEED = 1,
    REF_STOP = 3,         // do not pass the message on from here
    REF_AUTO_DELETE = 5,  // a weak owner deleted itself
};

// Animatable flag bits, each with one use only.
inline constexpr uint32_t A_HELD = 1u << 2;              // a restore object is in the open hold
inline constexpr uint32_t A_EULER_RESTORE_PUT = 0x1000;  // an Euler controller's restore is put
inline constexpr uint32_t A_LOOP_MARK = 1u << 26;        // reached by a REFMSG_LOOPTEST probe

}  // namespace host
