#include "host/io/ChunkWriter.h"

#include <bit>
#include <cassert>
#include <cstring>

namespace host {

static_assert(std::endian::native == std::endian::little, "scene files are little-endian");

void ChunkWriter::BeginChunk(uint16_t id) {
    size_t written = 0;
    Write(&id, sizeof(id), &written);
    open_.push_back(bytes_.size());
    const uint64_t length = 0;  // filled in by EndChunk
    Write(&length, sizeof(length), &written);
}

void ChunkWriter::EndChunk() {
    assert(!open_.empty());
    if (open_.empty()) return;
    const size_t at = open_.back();
    open_.pop_back();
    const uint64_t length = bytes_.size() - at - sizeof(uint64_t);
    std::memcpy(bytes_.data() + at, &length, sizeof(length));
}

IOResult ChunkWriter::Write(const void* data, size_t bytes, size_t* written) {
    const auto* from = static_cast<const uint8_t*>(data);
    bytes_.insert(bytes_.end(), from, from + bytes);
    *written = bytes;
    return IO_OK;
}

}  // namespace host
