#include "host/script/ScriptError.h"

namespace host {

ArgCountError::ArgCountError(const WStr& function, int wanted, int got) {
    text_.printf(L"Argument count error: %ls wanted %d, got %d", function.data(), wanted, got);
}

}  // namespace host
