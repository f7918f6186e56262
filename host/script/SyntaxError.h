#pragma once

#include <stdexcept>
#include <string>

namespace host::script {

// A script that cannot be read: what was wrong and where (1-based line and column).
// Thrown by the lexer and the parser only, never while a script runs.
struct SyntaxError {
    std::wstring message;
    int line = 0;
    int column = 0;
};

}  // namespace host::script
