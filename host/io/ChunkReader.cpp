#include "host/io/ChunkReader.h"

#include <cstring>

namespace host {

namespace {

std::string Hex(unsigned value) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%04x", value);
    return text;
}

}  // namespace

IOResult ChunkReader::OpenChunk() {
    if (Failed()) return IO_ERROR;
    if (pos_ == End()) return IO_END;
    uint16_t id = 0;
    uint64_t length = 0;
    if (End() - pos_ < sizeof(id) + sizeof(length)) return Fail("a chunk header is cut short");
    std::memcpy(&id, bytes_.data() + pos_, sizeof(id));
    std::memcpy(&length, bytes_.data() + pos_ + sizeof(id), sizeof(length));
    const size_t start = pos_ + sizeof(id) + sizeof(length);
    if (length > End() - start)
        return Fail("chunk " + Hex(id) + " claims " + std::to_string(length) + " bytes but only " +
                    std::to_string(End() - start) + " follow");
    open_.push_back({id, start, start + size_t(length)});
    pos_ = start;
    return IO_OK;
}

uint64_t ChunkReader::CurChunkLength() {
    return open_.empty() ? 0 : open_.back().end - open_.back().start;
}

IOResult ChunkReader::CloseChunk() {
    if (int(open_.size()) <= floor_) return Fail("a chunk was closed that was never opened");
    pos_ = open_.back().end;
    open_.pop_back();
    return Failed() ? IO_ERROR : IO_OK;
}

IOResult ChunkReader::Read(void* data, size_t bytes, size_t* read) {
    *read = 0;
    if (Failed()) return IO_ERROR;
    if (bytes > End() - pos_)
        return Fail("chunk " + Hex(CurChunkID()) + " ends before the " + std::to_string(bytes) +
                    " bytes that were to be read");
    if (bytes > 0) std::memcpy(data, bytes_.data() + pos_, bytes);
    pos_ += bytes;
    *read = bytes;
    return IO_OK;
}

void ChunkReader::RegisterPostLoadCallback(PostLoadCallback* callback) {
    callbacks_.emplace_back(callback);
}

void ChunkReader::SetError(const std::string& what) {
    Fail(what);
}

IOResult ChunkReader::Fail(const std::string& what) {
    if (error_.empty()) error_ = what + " (at byte " + std::to_string(pos_) + ")";
    return IO_ERROR;
}

void ChunkReader::ResolveBackpatches(const std::function<ReferenceTarget*(int)>& objectOf) {
    for (const Backpatch& b : backpatches_) b.apply(objectOf(b.id));
    backpatches_.clear();
}

void ChunkReader::RunPostLoadCallbacks() {
    for (auto& callback : callbacks_) callback->proc(this);
    callbacks_.clear();
}

}  // namespace host
