#include "host/script/TarnixSubAnim.h"

#include "host/object/Control.h"
#include "host/object/IParamBlock2.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/script/Interpreter.h"
#include "host/script/ParamAccess.h"
#include "host/script/ScriptError.h"
#include "host/script/TarnixControl.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

// The script name of the parameter behind sub-anim index of a block, or null.
const wchar_t* BlockParamName(Animatable* parent, int index) {
    auto* block = dynamic_cast<IParamBlock2*>(parent);
    if (!block || !block->GetDesc()) return nullptr;
    const int param = block->SubToParamIndex(index);
    return param < 0 ? nullptr : block->GetDesc()->Param(param).name;
}

}  // namespace

Value TarnixSubAnim::intern(Animatable* parent, int index) {
    if (!parent || index < 0 || index >= parent->NumSubs()) return Value();
    Value owner = WrapAnimatable(parent);
    if (owner.IsUndefined()) return Value();
    return MakeHeap<TarnixSubAnim>(Tag::SubAnim, std::move(owner), index);
}

Animatable* TarnixSubAnim::Parent() const {
    Animatable* parent = AnimatableOf(parent_);
    if (!parent) throw RuntimeError(L"Attempt to access deleted scene object");
    if (index_ >= parent->NumSubs()) throw RuntimeError(L"The sub-anim no longer exists");
    return parent;
}

std::wstring TarnixSubAnim::Text() const {
    Animatable* parent = AnimatableOf(parent_);
    return parent ? L"SubAnim:" + parent->SubAnimName(index_).str() : L"<Deleted sub-anim>";
}

bool TarnixSubAnim::GetProperty(Interpreter& in, const std::wstring& name, Value& out) {
    Animatable* parent = Parent();
    Animatable* sub = parent->SubAnim(index_);
    if (name == L"name") {
        out = MakeString(parent->SubAnimName(index_).str());
    } else if (name == L"controller") {
        out = TarnixControl::intern(dynamic_cast<Control*>(sub));
    } else if (name == L"object") {
        out = WrapAnimatable(sub);
    } else if (name == L"value") {
        if (auto* control = dynamic_cast<Control*>(sub))
            out = ControllerValue(*control, in.CurrentTime());
        else if (const wchar_t* param = BlockParamName(parent, index_))
            GetParam(parent, param, in.CurrentTime(), out);
        else
            out = WrapAnimatable(sub);
    } else {
        return false;
    }
    return true;
}

bool TarnixSubAnim::SetProperty(Interpreter& in, const std::wstring& name, const Value& v) {
    if (name == L"controller") return AssignController(v);
    if (name != L"value") return false;
    Animatable* parent = Parent();
    if (auto* control = dynamic_cast<Control*>(parent->SubAnim(index_))) {
        SetControllerValue(*control, in.CurrentTime(), v);
        return true;
    }
    const wchar_t* param = BlockParamName(parent, index_);
    if (!param) throw RuntimeError(L"This sub-anim has no value to set");
    return SetParam(parent, param, in.CurrentTime(), v);
}

// Puts the controller v in the track, as the parent allows (a float controller in a
// float track, say); undoable through the parent's reference.
bool TarnixSubAnim::AssignController(const Value& v) {
    Animatable* parent = Parent();
    auto* control = dynamic_cast<Control*>(AnimatableOf(v));
    if (!control || !parent->AssignController(control, index_))
        throw RuntimeError(WStr(L"Cannot assign " + PrintText(v) + L" to " + Text()));
    return true;
}

bool TarnixSubAnim::Equals(const ObjectValue& other) const {
    auto* s = dynamic_cast<const TarnixSubAnim*>(&other);
    return s && s->index_ == index_ && AnimatableOf(s->parent_) == AnimatableOf(parent_);
}

}  // namespace host::script
