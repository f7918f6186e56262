#pragma once

namespace host::script {

class Interpreter;

// The built-ins that need no scene: print, format, the math functions, random and
// seed, array helpers, getCurrentException, pi.
void DefineCoreBuiltins(Interpreter& in);

}  // namespace host::script
