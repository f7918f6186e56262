#include "host/object/FPInterfaceDesc.h"

#include <cwctype>

namespace host {

bool SameName(const WStr& a, const wchar_t* b) {
    const wchar_t* p = a.data();
    for (; *p && *b; ++p, ++b)
        if (std::towlower(wint_t(*p)) != std::towlower(wint_t(*b))) return false;
    return *p == *b;
}

FPInterfaceDesc::FPInterfaceDesc(Interface_ID id, const wchar_t* name, uint32_t flags,
                                 std::vector<FPFunctionDesc> functions,
                                 std::vector<FPPropertyDesc> properties,
                                 std::vector<FPEnumDesc> enums)
    : id_(id),
      name_(name),
      flags_(flags),
      functions_(std::move(functions)),
      properties_(std::move(properties)),
      enums_(std::move(enums)) {}

const FPFunctionDesc* FPInterfaceDesc::FindFunction(const WStr& name) const {
    for (const FPFunctionDesc& f : functions_)
        if (SameName(name, f.name)) return &f;
    return nullptr;
}

const FPFunctionDesc* FPInterfaceDesc::FindFunction(FunctionID id) const {
    for (const FPFunctionDesc& f : functions_)
        if (f.id == id) return &f;
    return nullptr;
}

const FPPropertyDesc* FPInterfaceDesc::FindProperty(const WStr& name) const {
    for (const FPPropertyDesc& p : properties_)
        if (SameName(name, p.name)) return &p;
    return nullptr;
}

std::optional<int> FPInterfaceDesc::EnumValue(EnumID id, const WStr& item) const {
    for (const FPEnumDesc& e : enums_) {
        if (e.id != id) continue;
        for (const auto& [name, value] : e.items)
            if (SameName(item, name)) return value;
    }
    return std::nullopt;
}

}  // namespace host
