#pragma once

#include <cstddef>
#include <string>

namespace host {

// How writing a file through a temporary file ended, and the errno of a failure.
struct ReplaceResult {
    enum Step { DONE, NO_TEMPORARY, NOT_WRITTEN };
    Step step = DONE;
    int error = 0;

    bool Ok() const { return step == DONE; }
};

// Writes size bytes to path without ever leaving a half-written file there: they go to
// a temporary file beside it, synced, which is renamed over path only when every byte
// is written (and is removed otherwise). The file keeps the mode of the one it
// replaces; a new one gets the usual mode.
ReplaceResult ReplaceFileContents(const std::string& path, const void* data, size_t size);

}  // namespace host
