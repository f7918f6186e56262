#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "host/core/WStr.h"
#include "host/object/IOResult.h"

namespace host {

// What an object writes its state through when the scene is saved: nested chunks, each
// an id and the bytes written between BeginChunk and EndChunk (data, or more chunks).
// Chunk ids are the class's own; a reader skips the ones it does not know.
class ISave {
public:
    virtual ~ISave() = default;

    virtual void BeginChunk(uint16_t id) = 0;
    virtual void EndChunk() = 0;
    virtual IOResult Write(const void* data, size_t bytes, size_t* written) = 0;
    // The number the file gives an object it saves, for pointers kept outside the
    // reference slots (ILoad::RecordBackpatch turns it back); -1 for null or an object
    // the file does not hold.
    virtual int GetRefID(void* object) = 0;

    // A plain value, byte for byte.
    template <class T>
    IOResult WriteValue(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        size_t written = 0;
        return Write(&value, sizeof(T), &written);
    }
    // A string as its UTF-8 length and bytes.
    IOResult WriteWString(const WStr& text) {
        const std::string utf8 = text.ToUtf8();
        if (WriteValue(uint32_t(utf8.size())) != IO_OK) return IO_ERROR;
        size_t written = 0;
        return Write(utf8.data(), utf8.size(), &written);
    }
    // A chunk holding one value.
    template <class T>
    void WriteChunk(uint16_t id, const T& value) {
        BeginChunk(id);
        WriteValue(value);
        EndChunk();
    }
};

}  // namespace host
