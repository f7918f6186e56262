#include "host/object/ILoad.h"

#include "host/core/Utf8.h"

namespace host {

IOResult ILoad::ReadWString(WStr& text) {
    uint32_t length = 0;
    if (ReadCount(length, 1) != IO_OK) return IO_ERROR;
    std::string utf8(length, '\0');
    size_t read = 0;
    if (Read(utf8.data(), length, &read) != IO_OK) return IO_ERROR;
    const std::optional<std::wstring> wide = Utf8ToWideStrict(utf8);
    if (!wide) {
        SetError("a string is not valid UTF-8");
        return IO_ERROR;
    }
    text = WStr(*wide);
    return IO_OK;
}

IOResult ILoad::ReadCount(uint32_t& count, size_t itemBytes) {
    if (ReadValue(count) != IO_OK) return IO_ERROR;
    if (itemBytes > 0 && uint64_t(count) > Remaining() / itemBytes) {
        SetError("a count of " + std::to_string(count) + " is more than its chunk holds");
        return IO_ERROR;
    }
    return IO_OK;
}

}  // namespace host
