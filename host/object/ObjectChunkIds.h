#pragma once

#include <cstdint>

// Chunk ids of the object model's saved state (parameter blocks, custom attributes,
// nodes, derived objects, the scene). They are data of the scene file format: never
// renumber one.
namespace host::chunks {

// --- parameter blocks ---
// The block id, the class that defines the block (superclass, class id) and the owner.
inline constexpr uint16_t PB_HEADER = 0x0100;
// One parameter: its id, type, element count, then each element's value (and, for an
// element that holds a reference, whether it had one).
inline constexpr uint16_t PB_PARAM = 0x0110;
// A transient parameter that holds references: its id, type and element count, and only
// the reference flags, so that the block's reference slots line up on load.
inline constexpr uint16_t PB_PARAM_SLOTS = 0x0111;

// --- custom attribute containers ---
inline constexpr uint16_t CA_OWNER = 0x0200;
// The attribute count, then one flag per attribute slot: whether it was filled.
inline constexpr uint16_t CA_SLOTS = 0x0201;

// --- derived objects ---
// The modifier count, then each modifier's context: its transform and box.
inline constexpr uint16_t DERIVOB_MODIFIERS = 0x0300;

// --- track view nodes ---
// The item count, then each item's name and class id tag.
inline constexpr uint16_t TVNODE_ITEMS = 0x0400;

// --- base classes whose subclasses add chunks of their own ---
// These share a chunk level with the subclasses' chunks, so the subclasses keep clear
// of the range 0x7000..0x70FF.
inline constexpr uint16_t MODIFIER_ENABLED = 0x7010;
inline constexpr uint16_t MTL_NAME = 0x7030;
// One byte: bit 0 renderable, bit 1 displayed as a mesh.
inline constexpr uint16_t SHAPE_RENDER_FLAGS = 0x7040;

}  // namespace host::chunks
