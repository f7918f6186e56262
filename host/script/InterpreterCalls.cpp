// Calls: script functions, C++ primitives and callable scene values, with their
// arguments on the interpreter's value stack.

#include <algorithm>

#include "host/script/ControlNodes.h"
#include "host/script/Interpreter.h"
#include "host/script/ObjectValue.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

constexpr int kMaxCallDepth = 400;

// A parameter's slot holds a cell when an inner function uses the parameter.
void StoreParameter(Value& slot, Value v) {
    if (slot.tag() == Tag::Cell)
        slot.As<CellObject>().value = std::move(v);
    else
        slot = std::move(v);
}

}  // namespace

const Value* CallArgs::Keyword(std::wstring_view name) const {
    for (size_t i = 0; i < keywordNames_.size(); ++i)
        if (keywordNames_[i] == name) return &keywordValues_[i];
    return nullptr;
}

void CallArgs::CheckCount(const wchar_t* function, int wanted) const {
    if (Count() != wanted) throw ArgCountError(function, wanted, Count());
}

bool Interpreter::PushArgs(const std::vector<std::unique_ptr<Node>>& args) {
    for (const auto& arg : args) {
        if (top_ == stackEnd_) {
            Fail(*arg, L"Stack overflow");
            return false;
        }
        Value v = arg->Eval(*this);
        if (Unwinding()) return false;
        *top_++ = std::move(v);
    }
    return true;
}

Value Interpreter::Call(const Node& site, const Value& callee,
                        const std::vector<std::unique_ptr<Node>>& args,
                        const std::vector<std::wstring>& keywordNames,
                        const std::vector<std::unique_ptr<Node>>& keywordValues) {
    const bool callable = callee.tag() == Tag::Function || callee.tag() == Tag::Primitive ||
                          (callee.tag() > Tag::Cell && callee.As<ObjectValue>().IsCallable());
    if (!callable) return Fail(site, L"Call needs function or class, got: " + PrintText(callee));
    if (!Tick(site)) return Value();
    Value* base = top_;
    if (!PushArgs(args)) {
        PopTo(base);
        return Value();
    }
    if (callee.tag() == Tag::Function)
        return CallFunction(site, callee.As<FunctionObject>(), base, int(args.size()), keywordNames,
                            keywordValues);
    // Primitives and scene values take their keyword values after the positional ones.
    if (!PushArgs(keywordValues)) {
        PopTo(base);
        return Value();
    }
    const auto positional = std::span<Value>(base, args.size());
    const auto keywords = std::span<Value>(base + args.size(), keywordValues.size());
    CallArgs call(*this, site, positional, keywordNames, keywords);
    Value result;
    try {
        result = callee.tag() == Tag::Primitive ? callee.As<PrimitiveObject>().fn(call)
                                                : callee.As<ObjectValue>().Call(call);
    } catch (const ScriptException& e) {
        Fail(site, e.Message().str());
    }
    PopTo(base);
    return Unwinding() ? Value() : result;
}

bool Interpreter::BindKeywords(const FunctionObject& fn, Value* base,
                               const std::vector<std::wstring>& keywordNames,
                               const std::vector<std::unique_ptr<Node>>& keywordValues) {
    const FunctionNode& def = *fn.def;
    uint64_t given = 0;
    for (size_t k = 0; k < keywordNames.size(); ++k) {
        const auto it =
            std::find(def.keywordNames.begin(), def.keywordNames.end(), keywordNames[k]);
        if (it == def.keywordNames.end()) {
            Fail(*keywordValues[k],
                 L"Unknown keyword argument " + keywordNames[k] + L": in call to " + def.name);
            return false;
        }
        Value v = keywordValues[k]->Eval(*this);
        if (Unwinding()) return false;
        const size_t index = size_t(it - def.keywordNames.begin());
        StoreParameter(base[def.positionalCount + int(index)], std::move(v));
        given |= uint64_t(1) << index;
    }
    // Defaults are evaluated in the called function's frame, after the given arguments.
    Value* savedFrame = frame_;
    const FunctionObject* savedClosure = closure_;
    frame_ = base;
    closure_ = &fn;
    for (size_t index = 0; index < def.keywordNames.size() && !Unwinding(); ++index) {
        if (given & (uint64_t(1) << index)) continue;
        StoreParameter(base[def.positionalCount + int(index)],
                       def.keywordDefaults[index]->Eval(*this));
    }
    frame_ = savedFrame;
    closure_ = savedClosure;
    return !Unwinding();
}

Value Interpreter::CallFunction(const Node& site, const FunctionObject& fn, Value* base,
                                int positional, const std::vector<std::wstring>& keywordNames,
                                const std::vector<std::unique_ptr<Node>>& keywordValues) {
    const FunctionNode& def = *fn.def;
    if (positional != def.positionalCount) {
        PopTo(base);
        return Fail(site, ArgCountError(def.name, def.positionalCount, positional).Message().str());
    }
    if (StackExhausted(site)) {
        PopTo(base);
        return Value();
    }
    if (depth_ >= kMaxCallDepth || base + def.frameSize > stackEnd_) {
        PopTo(base);
        return Fail(site, L"Stack overflow: calls nested too deeply in " + def.name);
    }
    top_ = base + def.frameSize;
    // Locals that inner functions use live in cells from the start, parameters too.
    for (const VarInfo* v : def.capturedLocals) {
        auto* cell = new CellObject;
        cell->value = std::move(base[v->slot]);
        base[v->slot] = Value::Heap(Tag::Cell, cell);
    }
    if ((!def.keywordNames.empty() || !keywordNames.empty()) &&
        !BindKeywords(fn, base, keywordNames, keywordValues)) {
        PopTo(base);
        return Value();
    }
    Value* savedFrame = frame_;
    const FunctionObject* savedClosure = closure_;
    const Program* savedProgram = program_;
    frame_ = base;
    closure_ = &fn;
    program_ = fn.program.get();
    ++depth_;
    Value result = def.body->Eval(*this);
    --depth_;
    frame_ = savedFrame;
    closure_ = savedClosure;
    program_ = savedProgram;
    PopTo(base);
    if (signal == Signal::Return) {
        signal = Signal::None;
        result = std::move(pending);
    }
    return result;
}

}  // namespace host::script
