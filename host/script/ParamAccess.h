#pragma once

#include <string>

#include "host/core/TimeValue.h"
#include "host/script/Value.h"

namespace host {
class Animatable;
}

namespace host::script {

// The parameters of an object's parameter blocks by script name (case-insensitive).
// A table parameter reads as an array (1-based in scripts). False when the object has
// no parameter of that name; a value of the wrong type throws RuntimeError.
bool GetParam(Animatable* owner, const std::wstring& name, TimeValue t, Value& out);
bool SetParam(Animatable* owner, const std::wstring& name, TimeValue t, const Value& v);

// Wraps a scene object in the value of its kind (node, controller, reference target);
// undefined for null.
Value WrapAnimatable(Animatable* anim);
// The scene object a node, controller or reference-target value stands for; null for
// any other value and for an object that has been deleted.
Animatable* AnimatableOf(const Value& v);

}  // namespace host::script
