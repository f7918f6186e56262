#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

// A value as print and the listener show it: strings in quotes with escapes, names
// with their #, floats with six significant digits and always a decimal point.
std::wstring PrintText(const Value& v);
// A value as format and string joins show it: strings as they are, the rest as print.
std::wstring PlainText(const Value& v);
// The name of a value's kind, for classOf and for errors: "Integer", "String", ...
std::wstring KindName(const Value& v);

}  // namespace host::script
