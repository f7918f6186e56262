#include "host/script/TarnixControl.h"

#include "host/math/ScaleValue.h"
#include "host/object/ClassRegistry.h"
#include "host/script/Interpreter.h"
#include "host/script/QuatValue.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

Value TarnixControl::intern(Control* control) {
    if (!control) return Value();
    return MakeHeap<TarnixControl>(Tag::Control, control);
}

Value ControllerValue(Control& control, TimeValue t) {
    Interval valid = FOREVER;
    switch (control.SuperClassID()) {
        case CTRL_FLOAT_CLASS_ID: {
            float f = 0.0f;
            control.GetValue(t, &f, valid);
            return Value::Float(f);
        }
        case CTRL_POSITION_CLASS_ID:
        case CTRL_POINT3_CLASS_ID: {
            Point3 p;
            control.GetValue(t, &p, valid);
            return MakePoint3(p);
        }
        case CTRL_ROTATION_CLASS_ID: {
            Quat q;
            control.GetValue(t, &q, valid);
            return QuatValue::Make(q);
        }
        case CTRL_SCALE_CLASS_ID: {
            ScaleValue s;
            control.GetValue(t, &s, valid);
            return MakePoint3(s.s);
        }
        default:
            return Value();
    }
}

void SetControllerValue(Control& control, TimeValue t, const Value& v) {
    const SClass_ID kind = control.SuperClassID();
    if (kind == CTRL_FLOAT_CLASS_ID && v.IsNumber()) {
        float f = float(v.AsNumber());
        control.SetValue(t, &f);
    } else if ((kind == CTRL_POSITION_CLASS_ID || kind == CTRL_POINT3_CLASS_ID) &&
               v.tag() == Tag::Point3) {
        Point3 p = v.As<PointObject>().point;
        control.SetValue(t, &p);
    } else if (kind == CTRL_ROTATION_CLASS_ID && v.tag() == Tag::Quat) {
        Quat q = v.As<QuatValue>().quat;
        control.SetValue(t, &q);
    } else if (kind == CTRL_SCALE_CLASS_ID && v.tag() == Tag::Point3) {
        ScaleValue s(v.As<PointObject>().point);
        control.SetValue(t, &s);
    } else {
        throw RuntimeError(WStr(L"Cannot set the value of " + control.GetClassName().str() +
                                L" to " + PrintText(v)));
    }
}

bool TarnixControl::GetProperty(Interpreter& in, const std::wstring& name, Value& out) {
    if (name != L"value") return TarnixRefTarg::GetProperty(in, name, out);
    out = ControllerValue(static_cast<Control&>(*Live()), in.CurrentTime());
    return true;
}

bool TarnixControl::SetProperty(Interpreter& in, const std::wstring& name, const Value& v) {
    if (name != L"value") return TarnixRefTarg::SetProperty(in, name, v);
    SetControllerValue(static_cast<Control&>(*Live()), in.CurrentTime(), v);
    return true;
}

}  // namespace host::script
