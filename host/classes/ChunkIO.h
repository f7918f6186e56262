#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/core/BitArray.h"
#include "host/object/ILoad.h"
#include "host/object/ISave.h"
#include "host/object/ObjectChunkIO.h"

// Building blocks of the host classes' Save and Load: chunk loops, tables and flags
// written the same way by every class.
namespace host {

// The chunk loop, errors and plain values, shared with the object model.
using chunkio::LoadError;
using chunkio::ReadChunks;
using chunkio::ReadValues;
using chunkio::WriteValues;

// A flag as one byte, so that no byte of a file is read into a bool.
inline void WriteFlagChunk(ISave* isave, uint16_t id, bool on) {
    isave->WriteChunk(id, uint8_t(on ? 1 : 0));
}

inline IOResult ReadFlag(ILoad* iload, bool& on) {
    uint8_t byte = 0;
    if (iload->ReadValue(byte) != IO_OK) return IO_ERROR;
    on = byte != 0;
    return IO_OK;
}

// A count, then each item as write puts it.
template <class T, class Write>
void WriteRecords(ISave* isave, const std::vector<T>& items, Write write) {
    isave->WriteValue(uint32_t(items.size()));
    for (const T& item : items) write(item);
}

// Reads what WriteRecords wrote, each item with read(item); itemBytes is the least an
// item takes, which bounds the count before anything is sized from it.
template <class T, class Read>
IOResult ReadRecords(ILoad* iload, size_t itemBytes, std::vector<T>& items, Read read) {
    uint32_t count = 0;
    if (iload->ReadCount(count, itemBytes) != IO_OK) return IO_ERROR;
    std::vector<T> loaded(count);
    for (T& item : loaded)
        if (read(item) != IO_OK) return IO_ERROR;
    items = std::move(loaded);
    return IO_OK;
}

// A table of plain values (points, indices), byte for byte.
template <class T>
void WriteTable(ISave* isave, const std::vector<T>& items) {
    static_assert(std::is_trivially_copyable_v<T>);
    size_t written = 0;
    isave->WriteValue(uint32_t(items.size()));
    isave->Write(items.data(), items.size() * sizeof(T), &written);
}

template <class T>
IOResult ReadTable(ILoad* iload, std::vector<T>& items) {
    static_assert(std::is_trivially_copyable_v<T>);
    uint32_t count = 0;
    if (iload->ReadCount(count, sizeof(T)) != IO_OK) return IO_ERROR;
    std::vector<T> loaded(count);
    size_t read = 0;
    if (iload->Read(loaded.data(), loaded.size() * sizeof(T), &read) != IO_OK) return IO_ERROR;
    items = std::move(loaded);
    return IO_OK;
}

// A bit array as a chunk of its own serialised form.
inline void WriteBitsChunk(ISave* isave, uint16_t id, const BitArray& bits) {
    const std::vector<uint8_t> bytes = bits.Save();
    size_t written = 0;
    isave->BeginChunk(id);
    isave->Write(bytes.data(), bytes.size(), &written);
    isave->EndChunk();
}

// The rest of the open chunk as a bit array.
inline IOResult ReadBits(ILoad* iload, BitArray& bits) {
    std::vector<uint8_t> bytes(size_t(iload->Remaining()));
    size_t read = 0;
    if (iload->Read(bytes.data(), bytes.size(), &read) != IO_OK) return IO_ERROR;
    if (!bits.Load(bytes.data(), bytes.size())) return LoadError(iload, "a bit array is malformed");
    return IO_OK;
}

}  // namespace host
