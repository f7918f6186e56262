#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

class Interpreter;
class Node;

// Properties and items of any value: `.x` of points, `.count` of arrays and strings,
// what scene values answer, and 1-based indexing. Errors are raised at `at`.
Value GetMember(Interpreter& in, const Node& at, const Value& object, const std::wstring& name);
// Points are values: setting a component makes a new point, which the caller stores
// back where the point came from. Returns the object to store back, or undefined when
// the object was changed in place (arrays, scene values).
bool SetMember(Interpreter& in, const Node& at, const Value& object, const std::wstring& name,
               const Value& v, Value& changedObject);
Value GetItem(Interpreter& in, const Node& at, const Value& object, const Value& index);
void SetItem(Interpreter& in, const Node& at, const Value& object, const Value& index,
             const Value& v);

}  // namespace host::script
