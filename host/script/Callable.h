#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/script/CycleCollector.h"
#include "host/script/Value.h"

namespace host::script {

class Interpreter;
class Node;
class Program;
class FunctionNode;

// A script function: its definition, the script that holds it, and the cells of the
// enclosing functions' locals it uses.
class FunctionObject : public ContainerObject {
public:
    std::span<Value> Children() override { return cells; }
    std::shared_ptr<const Program> program;
    const FunctionNode* def = nullptr;
    std::vector<Value> cells;
};

// The arguments a C++ function receives from a script call.
class CallArgs {
public:
    CallArgs(Interpreter& in, const Node& site, std::span<Value> positional,
             std::span<const std::wstring> keywordNames, std::span<Value> keywordValues)
        : interpreter(in),
          site(site),
          positional(positional),
          keywordNames_(keywordNames),
          keywordValues_(keywordValues) {}

    int Count() const { return int(positional.size()); }
    const Value& operator[](int i) const { return positional[size_t(i)]; }
    // The keyword argument of that (lower-case) name, or null.
    const Value* Keyword(std::wstring_view name) const;
    // Throws ArgCountError unless there are exactly `wanted` positional arguments.
    void CheckCount(const wchar_t* function, int wanted) const;
    // The keyword arguments in call order.
    size_t KeywordCount() const { return keywordNames_.size(); }
    const std::wstring& KeywordName(size_t i) const { return keywordNames_[i]; }
    const Value& KeywordValue(size_t i) const { return keywordValues_[i]; }

    Interpreter& interpreter;
    const Node& site;
    std::span<Value> positional;

private:
    std::span<const std::wstring> keywordNames_;
    std::span<Value> keywordValues_;
};

// A function written in C++: a built-in or one a library registers. It throws a
// ScriptException (RuntimeError, ArgCountError) for bad arguments.
using PrimitiveFn = std::function<Value(CallArgs&)>;

// One row of a table of built-ins: the lower-case name and the function.
struct BuiltinFunction {
    const wchar_t* name;
    Value (*fn)(CallArgs&);
};

class PrimitiveObject : public HeapObject {
public:
    PrimitiveObject(std::wstring n, PrimitiveFn f) : name(std::move(n)), fn(std::move(f)) {}
    std::wstring name;
    PrimitiveFn fn;
};

}  // namespace host::script
