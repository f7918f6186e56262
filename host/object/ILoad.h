#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>

#include "host/core/WStr.h"
#include "host/object/IOResult.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// Called once the whole scene has been read and every reference set.
class PostLoadCallback {
public:
    virtual ~PostLoadCallback() = default;
    virtual void proc(class ILoad* iload) = 0;
};

// What an object reads its state from when a scene is loaded: the chunks its Save wrote,
// in order. OpenChunk steps into the next chunk of the present level (IO_END when there
// is none); CloseChunk steps out past whatever of it was not read. Every read is checked
// against the open chunk: a read that would run past it reads nothing and fails.
class ILoad {
public:
    virtual ~ILoad() = default;

    virtual IOResult OpenChunk() = 0;
    virtual uint16_t CurChunkID() = 0;
    // The bytes of the open chunk, and those of them not read yet.
    virtual uint64_t CurChunkLength() = 0;
    virtual uint64_t Remaining() = 0;
    virtual IOResult CloseChunk() = 0;
    virtual IOResult Read(void* data, size_t bytes, size_t* read) = 0;
    // Once every object is made, apply receives the object the file numbered id (null
    // for -1 or a number it does not hold).
    virtual void RecordBackpatch(int id, std::function<void(ReferenceTarget*)> apply) = 0;
    // The same for a pointer field of type T*: null unless the object is a T.
    template <class T>
    void RecordBackpatch(int id, T** patch) {
        RecordBackpatch(id,
                        [patch](ReferenceTarget* target) { *patch = dynamic_cast<T*>(target); });
    }
    // Takes ownership; runs after the load, in the order registered.
    virtual void RegisterPostLoadCallback(PostLoadCallback* callback) = 0;
    // Says what is wrong with the data in the reader's error message; the load fails.
    virtual void SetError(const std::string& what) = 0;

    template <class T>
    IOResult ReadValue(T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        size_t read = 0;
        return Read(&value, sizeof(T), &read);
    }
    // A string written by ISave::WriteWString; malformed UTF-8 is refused.
    IOResult ReadWString(WStr& text);
    // A count of items that follow, each at least itemBytes long: refused when the
    // chunk cannot hold that many, so that no reader sizes a table from a bad count.
    IOResult ReadCount(uint32_t& count, size_t itemBytes);
};

}  // namespace host
