#pragma once

#include <string>

#include "host/script/ObjectValue.h"

namespace host {
class ClassDesc2;
}

namespace host::script {

// A class: what classOf answers, and, for a registered scene class, its constructor
// (called by its internal name: `Point()`, `StaticFloat()`).
class ClassValue : public ObjectValue {
public:
    ClassValue(std::wstring name, ClassDesc2* desc) : name_(std::move(name)), desc_(desc) {}
    // The class of any value: of a node, its base object's class.
    static Value Of(const Value& v);
    // The registered class of that internal name (case-insensitive), or undefined.
    static Value Named(const std::wstring& name);

    std::wstring Text() const override { return name_; }
    bool Equals(const ObjectValue& other) const override;
    bool IsCallable() const override { return desc_ != nullptr; }
    Value Call(CallArgs& args) override;
    ClassDesc2* Desc() const { return desc_; }

private:
    std::wstring name_;
    ClassDesc2* desc_;
};

}  // namespace host::script
