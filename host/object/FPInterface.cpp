#include "host/object/FPInterface.h"

#include <algorithm>

namespace host {

namespace {

// The argument as the declared type wants it, or nothing when it does not fit. An int
// is taken for a float; anything is taken for a TYPE_FPVALUE or TYPE_VALUE.
std::optional<FPValue> Fit(const FPValue& v, ParamType2 wanted) {
    if (IsByRef(wanted))
        return IsByRef(v.type) && v.Get<FPValue*>() ? std::optional<FPValue>(v) : std::nullopt;
    const ParamType2 base = BaseType(wanted);
    if (!IsTable(wanted) && (base == TYPE_FPVALUE || base == TYPE_VALUE))
        return FPValue(wanted, std::make_shared<FPValue>(v));
    if (IsTable(wanted) != IsTable(v.type)) return std::nullopt;
    if (!IsTable(wanted) && KindOf(wanted) == ValueKind::Float && v.Get<int>())
        return FPValue(wanted, float(*v.Get<int>()));
    const ValueKind kind = KindOf(wanted);
    const bool same = kind == ValueKind::Other || kind == ValueKind::Reference
                          ? BaseType(v.type) == base
                          : KindOf(v.type) == kind;
    if (!same) return std::nullopt;
    FPValue fitted = v;
    fitted.type = wanted;
    return fitted;
}

bool Bind(const FPFunctionDesc& f, const FPCall& call, FPParams& p, WStr& error) {
    const size_t required = size_t(std::count_if(
        f.args.begin(), f.args.end(), [](const FPArgDesc& a) { return !a.keywordDefault; }));
    if (call.positional.size() != required) {
        error.printf(L"Wrong number of arguments in call to %ls: got %d, expected %d", f.name,
                     int(call.positional.size()), int(required));
        return false;
    }
    // Not a structured binding: clang 14 cannot capture one in the lambda below.
    for (const auto& keyword : call.keywords) {
        const wchar_t* name = keyword.first;
        const bool known = std::any_of(f.args.begin(), f.args.end(), [&](const FPArgDesc& a) {
            return a.keywordDefault && SameName(WStr(a.name), name);
        });
        if (!known) {
            error.printf(L"Unknown keyword argument %ls in call to %ls", name, f.name);
            return false;
        }
    }
    for (size_t i = 0; i < f.args.size(); ++i) {
        const FPArgDesc& arg = f.args[i];
        const FPValue* given = i < required ? &call.positional[i] : &*arg.keywordDefault;
        for (const auto& [name, value] : call.keywords)
            if (SameName(WStr(arg.name), name)) given = &value;
        std::optional<FPValue> fitted = Fit(*given, arg.type);
        if (!fitted) {
            error.printf(L"Wrong type for argument %ls in call to %ls", arg.name, f.name);
            return false;
        }
        p.params.push_back(std::move(*fitted));
    }
    return true;
}

std::vector<FPStaticInterface*>& CoreInterfaces() {
    static std::vector<FPStaticInterface*> interfaces;
    return interfaces;
}

}  // namespace

FPStatus Invoke(FPInterface* fpi, const FPCall& call, TimeValue t, FPValue& result, WStr& error) {
    const FPFunctionDesc* f = fpi->GetDesc()->FindFunction(WStr(call.function));
    if (!f) {
        error.printf(L"No function %ls in interface %ls", call.function,
                     fpi->GetDesc()->GetName().data());
        return FPS_NO_SUCH_FUNCTION;
    }
    FPParams p;
    if (!Bind(*f, call, p, error)) return FPS_FAIL;
    result.Init();
    return fpi->_dispatch_fn(f->id, t, result, &p);
}

FPStatus GetProperty(FPInterface* fpi, const wchar_t* name, TimeValue t, FPValue& result,
                     WStr& error) {
    const FPPropertyDesc* prop = fpi->GetDesc()->FindProperty(WStr(name));
    if (!prop) {
        error.printf(L"No property %ls in interface %ls", name, fpi->GetDesc()->GetName().data());
        return FPS_NO_SUCH_FUNCTION;
    }
    FPParams none;
    result.Init();
    return fpi->_dispatch_fn(prop->getter, t, result, &none);
}

FPStatus SetProperty(FPInterface* fpi, const wchar_t* name, TimeValue t, const FPValue& value,
                     WStr& error) {
    const FPPropertyDesc* prop = fpi->GetDesc()->FindProperty(WStr(name));
    if (!prop || prop->setter == FP_NO_FUNCTION) {
        error.printf(L"No settable property %ls in interface %ls", name,
                     fpi->GetDesc()->GetName().data());
        return FPS_NO_SUCH_FUNCTION;
    }
    std::optional<FPValue> fitted = Fit(value, prop->type);
    if (!fitted) {
        error.printf(L"Wrong type for property %ls", name);
        return FPS_FAIL;
    }
    FPParams p{{std::move(*fitted)}};
    FPValue ignored;
    return fpi->_dispatch_fn(prop->setter, t, ignored, &p);
}

void RegisterCoreInterface(FPStaticInterface* fpi) {
    auto& all = CoreInterfaces();
    if (std::find(all.begin(), all.end(), fpi) == all.end()) all.push_back(fpi);
}

void UnregisterCoreInterface(FPStaticInterface* fpi) {
    std::erase(CoreInterfaces(), fpi);
}

FPInterface* GetCOREInterface(Interface_ID id) {
    for (FPStaticInterface* fpi : CoreInterfaces())
        if (fpi->GetDesc()->GetID() == id) return fpi;
    return nullptr;
}

FPInterface* GetCOREInterface(const WStr& name) {
    for (FPStaticInterface* fpi : CoreInterfaces())
        if (SameName(name, fpi->GetDesc()->GetName().data())) return fpi;
    return nullptr;
}

}  // namespace host
