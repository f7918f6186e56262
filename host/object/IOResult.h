#pragma once

namespace host {

// The answer of every scene-file read and write: IO_END says a chunk list has no more
// chunks; IO_ERROR stops the load, which then reports what was wrong.
enum IOResult : int { IO_OK = 0, IO_END = 1, IO_ERROR = 2 };

}  // namespace host
