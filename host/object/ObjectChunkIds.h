#pragma once

#include <cstdint>

// Chunk ids of the object model's saved state (parameter blocks, custom attributes,
// nodes, derived objects, the scene). They are data of the scene file format: never
// renumber one.
namespace host::chunks {}  // namespace host::chunks
