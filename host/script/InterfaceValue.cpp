#include "host/script/InterfaceValue.h"

#include "host/object/Animatable.h"
#include "host/object/ClassDesc2.h"
#include "host/object/ClassRegistry.h"
#include "host/script/Callable.h"
#include "host/script/FPConvert.h"
#include "host/script/Interpreter.h"
#include "host/script/ParamAccess.h"
#include "host/script/ScriptError.h"
#include "host/script/ScriptRegistry.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

[[noreturn]] void Throw(const WStr& error) {
    throw RuntimeError(error);
}

FPValue ArgumentFor(const FPInterfaceDesc& desc, const FPArgDesc* arg, const Value& v) {
    FPValue out;
    const ParamType2 wanted = arg ? arg->type : TYPE_FPVALUE;
    // An enum item by name: #fast for the enum's value.
    if (BaseType(wanted) == TYPE_ENUM && v.tag() == Tag::Name) {
        for (EnumID id = 0; id < 64; ++id)
            if (auto item = desc.EnumValue(id, WStr(TextOf(v)))) return FPValue(TYPE_ENUM, *item);
        throw RuntimeError(WStr(L"Unknown enum value " + PrintText(v)));
    }
    if (!ToFPValue(v, out, wanted))
        throw RuntimeError(WStr(L"Cannot pass " + PrintText(v) + L" as argument " +
                                (arg ? std::wstring(arg->name) : std::wstring())));
    return out;
}

// The mix-ins scripts look for on anim: those registered with scripts, then those its
// class descriptor publishes.
std::vector<const FPInterfaceDesc*> MixinsOf(Animatable* anim) {
    std::vector<const FPInterfaceDesc*> mixins = ScriptRegistry::Instance().Mixins();
    if (ClassDesc2* cd = ClassRegistry::Instance().Find(anim->SuperClassID(), anim->ClassID()))
        mixins.insert(mixins.end(), cd->Interfaces().begin(), cd->Interfaces().end());
    return mixins;
}

}  // namespace

Value InterfaceValue::Static(FPInterface* fpi) {
    auto* v = new InterfaceValue;
    v->static_ = fpi;
    return Value::Heap(Tag::Interface, v);
}

Value InterfaceValue::Mixin(const Value& owner, Interface_ID id) {
    auto* v = new InterfaceValue;
    v->owner_ = owner;
    v->id_ = id;
    return Value::Heap(Tag::Interface, v);
}

FPInterface* InterfaceValue::Get() const {
    if (static_) return static_;
    Animatable* anim = AnimatableOf(owner_);
    FPInterface* fpi = anim ? anim->GetInterface(id_) : nullptr;
    if (!fpi) throw RuntimeError(L"The object of this interface has been deleted");
    return fpi;
}

std::wstring InterfaceValue::Text() const {
    return L"<Interface:" + Get()->GetDesc()->GetName().str() + L">";
}

bool InterfaceValue::GetProperty(Interpreter& in, const std::wstring& name, Value& out) {
    FPInterface* fpi = Get();
    const FPInterfaceDesc* desc = fpi->GetDesc();
    if (desc->FindProperty(WStr(name))) {
        FPValue result;
        WStr error;
        if (host::GetProperty(fpi, name.c_str(), in.CurrentTime(), result, error) != FPS_OK)
            Throw(error);
        out = FromFPValue(result);
        return true;
    }
    if (!desc->FindFunction(WStr(name))) return false;
    out = MakeHeap<InterfaceMethod>(Tag::BoundMethod, Value::Heap(Tag::Interface, this), name);
    return true;
}

bool InterfaceValue::SetProperty(Interpreter& in, const std::wstring& name, const Value& v) {
    FPInterface* fpi = Get();
    const FPPropertyDesc* prop = fpi->GetDesc()->FindProperty(WStr(name));
    if (!prop) return false;
    FPArgDesc arg{prop->name, prop->type};
    const FPValue value = ArgumentFor(*fpi->GetDesc(), &arg, v);
    WStr error;
    if (host::SetProperty(fpi, name.c_str(), in.CurrentTime(), value, error) != FPS_OK)
        Throw(error);
    return true;
}

bool InterfaceValue::Equals(const ObjectValue& other) const {
    auto* i = dynamic_cast<const InterfaceValue*>(&other);
    return i && i->Get() == Get();
}

std::wstring InterfaceMethod::Text() const {
    return interface_.As<InterfaceValue>().Text() + L"." + name_;
}

Value InterfaceMethod::Call(CallArgs& args) {
    FPInterface* fpi = interface_.As<InterfaceValue>().Get();
    const FPInterfaceDesc& desc = *fpi->GetDesc();
    const FPFunctionDesc* f = desc.FindFunction(WStr(name_));
    if (!f) throw RuntimeError(WStr(L"No function " + name_));
    auto argDesc = [&](const std::wstring& argName) -> const FPArgDesc* {
        for (const FPArgDesc& a : f->args)
            if (SameName(WStr(argName), a.name)) return &a;
        return nullptr;
    };
    std::vector<std::wstring> keywordNames;
    FPCall call{f->name, {}, {}};
    for (int i = 0; i < args.Count(); ++i)
        call.positional.push_back(
            ArgumentFor(desc, size_t(i) < f->args.size() ? &f->args[size_t(i)] : nullptr, args[i]));
    for (size_t k = 0; k < args.KeywordCount(); ++k) keywordNames.push_back(args.KeywordName(k));
    for (size_t k = 0; k < args.KeywordCount(); ++k)
        call.keywords.emplace_back(
            keywordNames[k].c_str(),
            ArgumentFor(desc, argDesc(keywordNames[k]), args.KeywordValue(k)));
    FPValue result;
    WStr error;
    if (Invoke(fpi, call, args.interpreter.CurrentTime(), result, error) != FPS_OK) Throw(error);
    return f->result == TYPE_VOID ? Value::Ok() : FromFPValue(result);
}

bool GetMixinMember(Interpreter& in, const Value& owner, const std::wstring& name, Value& out) {
    Animatable* anim = AnimatableOf(owner);
    if (!anim) return false;
    for (const FPInterfaceDesc* desc : MixinsOf(anim)) {
        if (!desc->FindProperty(WStr(name)) && !desc->FindFunction(WStr(name))) continue;
        if (!anim->GetInterface(desc->GetID())) continue;
        Value fpi = InterfaceValue::Mixin(owner, desc->GetID());
        return fpi.As<InterfaceValue>().GetProperty(in, name, out);
    }
    return false;
}

bool SetMixinProperty(Interpreter& in, const Value& owner, const std::wstring& name,
                      const Value& v) {
    Animatable* anim = AnimatableOf(owner);
    if (!anim) return false;
    for (const FPInterfaceDesc* desc : MixinsOf(anim)) {
        if (!desc->FindProperty(WStr(name)) || !anim->GetInterface(desc->GetID())) continue;
        Value fpi = InterfaceValue::Mixin(owner, desc->GetID());
        return fpi.As<InterfaceValue>().SetProperty(in, name, v);
    }
    return false;
}

}  // namespace host::script
