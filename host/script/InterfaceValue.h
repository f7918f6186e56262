#pragma once

#include "host/object/FPInterface.h"
#include "host/script/ObjectValue.h"

namespace host::script {

// A published interface: a static one (Zorvanta, AnimationManager), or a mix-in of an
// object, found again through its owner at each use so that a deleted owner is an
// error rather than a dangling pointer. Properties read and write through the
// interface's getters and setters; a function name gives an InterfaceMethod to call.
class InterfaceValue : public ObjectValue {
public:
    static Value Static(FPInterface* fpi);
    // owner: the node, controller or reference-target value that publishes the mix-in.
    static Value Mixin(const Value& owner, Interface_ID id);

    // The interface, or throws RuntimeError when its owner is gone.
    FPInterface* Get() const;
    std::wstring Text() const override;
    bool GetProperty(Interpreter& in, const std::wstring& name, Value& out) override;
    bool SetProperty(Interpreter& in, const std::wstring& name, const Value& v) override;
    bool Equals(const ObjectValue& other) const override;

private:
    FPInterface* static_ = nullptr;
    Value owner_;
    Interface_ID id_;
};

// One function of an interface, bound to it: `Zorvanta.activeUIPanel.AddControlsKey`
// before its arguments.
class InterfaceMethod : public ObjectValue {
public:
    InterfaceMethod(Value fpi, std::wstring name)
        : interface_(std::move(fpi)), name_(std::move(name)) {}
    std::wstring Text() const override;
    bool IsCallable() const override { return true; }
    Value Call(CallArgs& args) override;

private:
    Value interface_;
    std::wstring name_;
};

// Looks name up among the registered mix-ins that anim publishes: the property's value
// or a bound function. False when none has it.
bool GetMixinMember(Interpreter& in, const Value& owner, const std::wstring& name, Value& out);
bool SetMixinProperty(Interpreter& in, const Value& owner, const std::wstring& name,
                      const Value& v);

}  // namespace host::script
