#pragma once

#include "host/object/FPValue.h"
#include "host/script/Value.h"

namespace host::script {

// Script values to and from the tagged values of published functions. Integers narrow
// to int, floats to float; arrays of numbers or objects become tables. False when the
// value has no FPValue form.
bool ToFPValue(const Value& v, FPValue& out);
Value FromFPValue(const FPValue& v);

}  // namespace host::script
