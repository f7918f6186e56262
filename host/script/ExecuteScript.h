#pragma once

#include "host/object/FPValue.h"

namespace host {

namespace script {
class Interpreter;
}

// Runs TarnixScript text in the listener's interpreter (globals persist from one call to
// the next). False when it failed to read or run; the error then goes to the listener
// unless quietErrors, and with quietErrors too when logQuietErrors. result, when
// given, receives the value of the last expression.
bool ExecuteTarnixScriptScript(const wchar_t* text, bool quietErrors = false,
                               FPValue* result = nullptr, bool logQuietErrors = true);

// The listener's interpreter, made on first use.
script::Interpreter& TheListener();

}  // namespace host
