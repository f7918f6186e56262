#pragma once

#include <cstdint>

// The scene file's own chunks, around the objects' chunks. They are data of the file
// format: never renumber one.
namespace host::chunks {

inline constexpr char kSceneMagic[8] = {'T', 'N', 'X', 'S', 'C', 'E', 'N', 'E'};
inline constexpr uint32_t kSceneVersion = 1;

enum SceneChunk : uint16_t {
    SCENE_TIME = 0x0001,         // current time, animation range start and end, frame rate
    SCENE_CLASSES = 0x0002,      // count, then (superclass, class id a, class id b) each
    SCENE_TRACKS = 0x0003,       // the number of the root's custom tracks holder
    SCENE_OBJECTS = 0x0004,      // one SCENE_OBJECT each, numbered from 1 in order
    SCENE_ROOT = 0x0005,         // the root's children: count, then numbers
    SCENE_SELECTION = 0x0006,    // count, then numbers, in the order selected
    SCENE_LAYERS = 0x0007,       // the layer manager's own chunks
    SCENE_NODE_LAYERS = 0x0008,  // count, then (node number, layer index) for nodes not on
                                 // the default layer
};

enum ObjectChunk : uint16_t {
    SCENE_OBJECT = 0x0010,
    OBJECT_CLASS = 0x0011,     // index in the class directory
    OBJECT_DATA = 0x0012,      // what the object's Save wrote
    OBJECT_REFS = 0x0013,      // slot count, then numbers (-1 for an empty slot)
    OBJECT_INDIRECT = 0x0014,  // the same for weak references
};

}  // namespace host::chunks
