#pragma once

#include "host/object/FPValue.h"
#include "host/script/Value.h"

namespace host::script {

// Script values to and from the tagged values of published functions. wanted is the
// declared type of the argument: it turns a 1-based index into a 0-based one, an array
// into a table of its type, a scene value into the reference kind asked for, an array of
// 1-based bit numbers into a bit array (which comes back the same way). False when the
// value has no such form.
bool ToFPValue(const Value& v, FPValue& out, ParamType2 wanted = TYPE_FPVALUE);
Value FromFPValue(const FPValue& v);

}  // namespace host::script
