#pragma once

#include <cstdint>
#include <vector>

#include "host/object/ISave.h"

namespace host {

// Writes nested chunks into memory. A chunk is its id (2 bytes), the length of what
// follows (8 bytes) and its bytes; numbers are little-endian, as the machine keeps them.
// Pointers have no numbers here (GetRefID answers -1); the scene writer gives them.
class ChunkWriter : public ISave {
public:
    static constexpr size_t kHeaderBytes = sizeof(uint16_t) + sizeof(uint64_t);

    void BeginChunk(uint16_t id) override;
    void EndChunk() override;
    IOResult Write(const void* data, size_t bytes, size_t* written) override;
    int GetRefID(void*) override { return -1; }

    // Everything written; every chunk begun must have ended.
    const std::vector<uint8_t>& Bytes() const { return bytes_; }
    bool Balanced() const { return open_.empty(); }

private:
    std::vector<uint8_t> bytes_;
    std::vector<size_t> open_;  // where each open chunk's length goes
};

}  // namespace host
