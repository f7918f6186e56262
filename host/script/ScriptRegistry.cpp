#include "host/script/ScriptRegistry.h"

#include <algorithm>
#include <cwctype>

namespace host::script {

namespace {

std::wstring Lower(std::wstring s) {
    for (wchar_t& c : s) c = wchar_t(std::towlower(wint_t(c)));
    return s;
}

}  // namespace

ScriptRegistry& ScriptRegistry::Instance() {
    static ScriptRegistry registry;
    return registry;
}

void ScriptRegistry::RegisterFunction(const std::wstring& name, PrimitiveFn fn) {
    UnregisterFunction(name);
    functions_.emplace_back(Lower(name),
                            MakeHeap<PrimitiveObject>(Tag::Primitive, name, std::move(fn)));
}

void ScriptRegistry::UnregisterFunction(const std::wstring& name) {
    std::erase_if(functions_, [key = Lower(name)](const auto& f) { return f.first == key; });
}

Value ScriptRegistry::FindFunction(const std::wstring& name) const {
    for (const auto& [key, fn] : functions_)
        if (key == name) return fn;
    return Value();
}

void ScriptRegistry::RegisterMixin(const FPInterfaceDesc* desc) {
    if (std::find(mixins_.begin(), mixins_.end(), desc) == mixins_.end()) mixins_.push_back(desc);
}

}  // namespace host::script
