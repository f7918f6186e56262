#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/object/ILoad.h"

namespace host {

// Reads the chunks a ChunkWriter wrote, from bytes it does not own, trusting none of
// them: a chunk longer than what holds it, a read past its chunk, or a count its chunk
// cannot hold fails, reads nothing, and leaves the first such error as the message.
class ChunkReader : public ILoad {
public:
    explicit ChunkReader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    IOResult OpenChunk() override;
    uint16_t CurChunkID() override { return open_.empty() ? 0 : open_.back().id; }
    uint64_t CurChunkLength() override;
    uint64_t Remaining() override { return End() - pos_; }
    IOResult CloseChunk() override;
    IOResult Read(void* data, size_t bytes, size_t* read) override;
    using ILoad::RecordBackpatch;
    void RecordBackpatch(int id, std::function<void(ReferenceTarget*)> apply) override {
        backpatches_.push_back({id, std::move(apply)});
    }
    void RegisterPostLoadCallback(PostLoadCallback* callback) override;
    void SetError(const std::string& what) override;

    // The first error, with the byte offset where it was found; empty while all is well.
    const std::string& Error() const { return error_; }
    bool Failed() const { return !error_.empty(); }
    size_t Position() const { return pos_; }
    int Depth() const { return int(open_.size()); }
    // Chunks at this depth and above cannot be closed: an object reading its own data
    // cannot step out of it.
    void SetFloor(int depth) { floor_ = depth; }

    // Fills the recorded pointers from the reader's numbering of objects.
    void ResolveBackpatches(const std::function<ReferenceTarget*(int)>& objectOf);
    void RunPostLoadCallbacks();

private:
    struct Open {
        uint16_t id;
        size_t start, end;  // of the chunk's bytes
    };
    struct Backpatch {
        int id;
        std::function<void(ReferenceTarget*)> apply;
    };
    size_t End() const { return open_.empty() ? bytes_.size() : open_.back().end; }
    IOResult Fail(const std::string& what);

    std::span<const uint8_t> bytes_;
    size_t pos_ = 0;
    std::vector<Open> open_;
    std::vector<Backpatch> backpatches_;
    std::vector<std::unique_ptr<PostLoadCallback>> callbacks_;
    std::string error_;
    int floor_ = 0;
};

}  // namespace host
