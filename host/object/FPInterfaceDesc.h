#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/object/ClassId.h"
#include "host/object/FPValue.h"

namespace host {

using FunctionID = int;
using EnumID = int;
inline constexpr FunctionID FP_NO_FUNCTION = -1;

// One argument: a name, a type and, for a keyword argument, its default.
struct FPArgDesc {
    const wchar_t* name;
    ParamType2 type;
    std::optional<FPValue> keywordDefault = std::nullopt;
};

struct FPFunctionDesc {
    FunctionID id;
    const wchar_t* name;
    ParamType2 result;
    std::vector<FPArgDesc> args;  // positional first, keyword arguments (with defaults) after
};

// A property read and written through two function ids (FP_NO_FUNCTION: read-only).
struct FPPropertyDesc {
    const wchar_t* name;
    FunctionID getter;
    FunctionID setter;
    ParamType2 type;
};

struct FPEnumDesc {
    EnumID id;
    std::vector<std::pair<const wchar_t*, int>> items;
};

enum FPInterfaceFlags : uint32_t {
    FP_MIXIN = 1,  // implemented by the objects of a class, found through GetInterface
    FP_CORE = 2,   // one static interface of the scene model, found by id or by name
};

// The static description of a published interface: a table that the script binding,
// the documentation and the dispatch all read. Names match case-insensitively, as in
// scripts.
class FPInterfaceDesc {
public:
    FPInterfaceDesc(Interface_ID id, const wchar_t* name, uint32_t flags,
                    std::vector<FPFunctionDesc> functions,
                    std::vector<FPPropertyDesc> properties = {},
                    std::vector<FPEnumDesc> enums = {});

    Interface_ID GetID() const { return id_; }
    const WStr& GetName() const { return name_; }
    uint32_t GetFlags() const { return flags_; }
    const std::vector<FPFunctionDesc>& Functions() const { return functions_; }
    const std::vector<FPPropertyDesc>& Properties() const { return properties_; }

    const FPFunctionDesc* FindFunction(const WStr& name) const;
    const FPFunctionDesc* FindFunction(FunctionID id) const;
    const FPPropertyDesc* FindProperty(const WStr& name) const;
    // The value of an enum item by name, if the enum has it.
    std::optional<int> EnumValue(EnumID id, const WStr& item) const;

private:
    Interface_ID id_;
    WStr name_;
    uint32_t flags_;
    std::vector<FPFunctionDesc> functions_;
    std::vector<FPPropertyDesc> properties_;
    std::vector<FPEnumDesc> enums_;
};

// Case-insensitive name comparison, as scripts compare names.
bool SameName(const WStr& a, const wchar_t* b);

}  // namespace host
