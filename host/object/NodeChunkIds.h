#pragma once

#include <cstdint>

namespace host::chunks {

// A node: its properties and its children (by the file's numbers, in order).
enum NodeChunk : uint16_t {
    NODE_NAME = 0x0100,
    NODE_WIRE_COLOR = 0x0101,
    NODE_VISIBILITY = 0x0102,
    NODE_FLAGS = 0x0103,
    NODE_BONE = 0x0104,
    NODE_LOCKS = 0x0105,
    NODE_OFFSET = 0x0106,
    NODE_HANDLE = 0x0107,
    NODE_CHILDREN = 0x0108,
};

}  // namespace host::chunks
