#pragma once

#include "host/script/ObjectValue.h"

namespace host {
class Animatable;
}

namespace host::script {

// Sub-anim n of an object (getSubAnim x n, n 1-based in scripts, 0-based here).
// `.value` is the sub-controller's value at the script's time, or for a parameter
// block's sub-anim the parameter's value; `.controller`, `.object` and `.name` give
// the rest.
class TarnixSubAnim : public ObjectValue {
public:
    // Undefined when parent is null or index is out of its range.
    static Value intern(Animatable* parent, int index);
    TarnixSubAnim(Value parent, int index) : parent_(std::move(parent)), index_(index) {}

    std::wstring Text() const override;
    bool GetProperty(Interpreter& in, const std::wstring& name, Value& out) override;
    bool SetProperty(Interpreter& in, const std::wstring& name, const Value& v) override;
    bool Equals(const ObjectValue& other) const override;

private:
    Animatable* Parent() const;
    bool AssignController(const Value& v);

    Value parent_;  // the owner's node, controller or reference-target value
    int index_;
};

}  // namespace host::script
