#pragma once

#include <cstdint>

// Chunk ids of the host classes' saved state. They are data of the scene file format:
// never renumber one. Ids are the class's own, so different classes may reuse numbers.
namespace host::chunks {

// --- controllers ---

// --- objects, shapes, meshes, modifiers, curves, layers ---

}  // namespace host::chunks
