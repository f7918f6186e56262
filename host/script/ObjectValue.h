#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

class CallArgs;
class Interpreter;

// A value that stands for something outside the language: a scene node, a controller,
// a published interface, a bound interface function, a class. Each kind answers its
// own properties and calls; the interpreter only asks. The methods throw a
// ScriptException for bad arguments or values.
class ObjectValue : public HeapObject {
public:
    // The text print shows.
    virtual std::wstring Text() const = 0;
    // Reads a property (name in lower case); false when there is none of that name.
    virtual bool GetProperty(Interpreter&, const std::wstring&, Value&) { return false; }
    // Writes a property; false when there is no settable one of that name.
    virtual bool SetProperty(Interpreter&, const std::wstring&, const Value&) { return false; }
    virtual bool Equals(const ObjectValue& other) const { return this == &other; }
    virtual bool IsCallable() const { return false; }
    virtual Value Call(CallArgs&) { return Value(); }
};

}  // namespace host::script
