#pragma once

#include "host/object/RefTargMonitorRefMaker.h"
#include "host/script/ObjectValue.h"

namespace host::script {

// A reference target held by a script: watched without being owned, so that a
// deleted target reads as gone instead of dangling. Its properties are its parameter
// blocks' parameters by script name and the functions and properties of the mix-in
// interfaces it publishes.
class TarnixRefTarg : public ObjectValue, public IRefTargMonitor {
public:
    static Value intern(ReferenceTarget* target);

    explicit TarnixRefTarg(ReferenceTarget* target, Tag tag = Tag::RefTarg)
        : monitor_(*this, target), tag_(tag) {}
    // Null once the target is deleted.
    ReferenceTarget* Target() { return monitor_.GetRef(); }

    std::wstring Text() const override;
    bool GetProperty(Interpreter& in, const std::wstring& name, Value& out) override;
    bool SetProperty(Interpreter& in, const std::wstring& name, const Value& v) override;
    bool Equals(const ObjectValue& other) const override;

    RefResult ProcessRefTargMonitorMsg(const Interval&, ReferenceTarget*, PartID&, RefMessage, bool,
                                       bool, RefTargMonitorRefMaker*) override {
        return REF_SUCCEED;
    }
    int ProcessEnumDependents(DependentEnumProc*) override { return 0; }

protected:
    // A new value holding this object.
    Value Self() { return Value::Heap(tag_, this); }
    // The target, or throws RuntimeError when it has been deleted.
    ReferenceTarget* Live() const;
    // "<kind>:<class name>".
    std::wstring KindText(const wchar_t* kind) const;

private:
    mutable RefTargMonitorRefMaker monitor_;
    Tag tag_;
};

}  // namespace host::script
