#include "host/script/TarnixRefTarg.h"

#include "host/object/Control.h"
#include "host/object/INode.h"
#include "host/script/InterfaceValue.h"
#include "host/script/Interpreter.h"
#include "host/script/ParamAccess.h"
#include "host/script/ScriptError.h"
#include "host/script/TarnixControl.h"
#include "host/script/TarnixNode.h"

namespace host::script {

Value TarnixRefTarg::intern(ReferenceTarget* target) {
    if (!target) return Value();
    return MakeHeap<TarnixRefTarg>(Tag::RefTarg, target);
}

Value WrapAnimatable(Animatable* anim) {
    if (auto* node = dynamic_cast<INode*>(anim)) return TarnixNode::intern(node);
    if (auto* control = dynamic_cast<Control*>(anim)) return TarnixControl::intern(control);
    return TarnixRefTarg::intern(dynamic_cast<ReferenceTarget*>(anim));
}

Animatable* AnimatableOf(const Value& v) {
    if (v.tag() != Tag::Node && v.tag() != Tag::Control && v.tag() != Tag::RefTarg) return nullptr;
    return v.As<TarnixRefTarg>().Target();
}

ReferenceTarget* TarnixRefTarg::Live() const {
    ReferenceTarget* target = monitor_.GetRef();
    if (!target) throw RuntimeError(L"Attempt to access deleted scene object");
    return target;
}

std::wstring TarnixRefTarg::KindText(const wchar_t* kind) const {
    ReferenceTarget* target = monitor_.GetRef();
    return target ? std::wstring(kind) + L":" + target->GetClassName().str()
                  : L"<Deleted scene object>";
}

std::wstring TarnixRefTarg::Text() const {
    return KindText(L"ReferenceTarget");
}

bool TarnixRefTarg::GetProperty(Interpreter& in, const std::wstring& name, Value& out) {
    // A published property goes through its interface, which may check the value,
    // before a parameter of the same name.
    ReferenceTarget* target = Live();
    if (GetMixinMember(in, Self(), name, out)) return true;
    return GetParam(target, name, in.CurrentTime(), out);
}

bool TarnixRefTarg::SetProperty(Interpreter& in, const std::wstring& name, const Value& v) {
    ReferenceTarget* target = Live();
    if (SetMixinProperty(in, Self(), name, v)) return true;
    return SetParam(target, name, in.CurrentTime(), v);
}

bool TarnixRefTarg::Equals(const ObjectValue& other) const {
    auto* r = dynamic_cast<const TarnixRefTarg*>(&other);
    return r && r->monitor_.GetRef() == monitor_.GetRef();
}

}  // namespace host::script
