#pragma once

#include "host/object/Control.h"
#include "host/script/TarnixRefTarg.h"

namespace host::script {

// A controller held by a script. `.value` is its value at the script's time: a float,
// a point3 (position, point3, scale) or a quat (rotation); it is set the same way.
class TarnixControl : public TarnixRefTarg {
public:
    static Value intern(Control* control);
    explicit TarnixControl(Control* control) : TarnixRefTarg(control, Tag::Control) {}

    std::wstring Text() const override { return KindText(L"Controller"); }
    bool GetProperty(Interpreter& in, const std::wstring& name, Value& out) override;
    bool SetProperty(Interpreter& in, const std::wstring& name, const Value& v) override;
};

// The value of a controller at t, as a script value (undefined for a matrix controller).
Value ControllerValue(Control& control, TimeValue t);
// Sets it; throws RuntimeError for a value of the wrong kind.
void SetControllerValue(Control& control, TimeValue t, const Value& v);

}  // namespace host::script
