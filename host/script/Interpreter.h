#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/TimeValue.h"
#include "host/script/Callable.h"
#include "host/script/Globals.h"
#include "host/script/Value.h"

namespace host::script {

class Node;
class Program;
class FunctionNode;
class VarNode;

// What stops the normal flow of evaluation, carried up by every node until one handles
// it: try (Error), a function call (Return), a loop (Exit, Continue).
enum class Signal : uint8_t { None, Error, Return, Exit, Continue };

// A script error: its text and where it happened (1-based line and column; 0 when the
// error has no place, such as a step limit reached outside any node).
struct ScriptFailure {
    std::wstring message;
    int line = 0;
    int column = 0;
    bool syntax = false;
    // The listener's text: "-- Syntax error: ..." or "-- Runtime error: ...", with the
    // place.
    std::wstring Report() const;
};

// Runs scripts: the globals (which outlive one script), the value stack of the running
// functions, the step limit and the state of the contexts (`at time`). One interpreter
// is the listener's; tests and tools make their own.
class Interpreter {
public:
    Interpreter();
    ~Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    // Reads and runs text. True with the value of its last expression in result; false
    // with the error in failure.
    bool Run(std::wstring_view text, Value& result, ScriptFailure& failure);

    Globals& GetGlobals() { return globals_; }
    // Makes a global C++ function callable by name (case-insensitive).
    void DefinePrimitive(const std::wstring& name, PrimitiveFn fn);
    void DefinePrimitives(std::span<const BuiltinFunction> table);

    // Ends any script after this many loop passes and calls (0: no limit).
    void SetStepLimit(int64_t steps) { stepLimit_ = steps; }
    // The scene time the script sees: the `at time` context's, or the scene's.
    TimeValue CurrentTime() const;
    // Listener output.
    void Print(const std::wstring& text);
    // A seeded generator for `random`.
    uint64_t NextRandom();
    void Seed(uint64_t seed) { random_ = seed; }
    // The text of the error being handled by the innermost catch; empty outside one.
    const std::wstring& CurrentException() const;

    // --- Used by the nodes while they run ---
    // Raises an error at node at: sets the Error signal and returns undefined.
    Value Fail(const Node& at, std::wstring message);
    bool Unwinding() const { return signal != Signal::None; }
    // Counts one step; false (with the error raised) past the limit.
    bool Tick(const Node& at) {
        if (stepLimit_ == 0 || ++steps_ <= stepLimit_) return true;
        Fail(at, L"Script ran too long: step limit reached");
        return false;
    }
    // True (with the error raised at at) when the native stack is nearly used up: deep
    // recursion ends with a script error rather than a crash.
    bool StackExhausted(const Node& at) {
        const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        if (stackBase_ - here < kNativeStackBudget) return false;
        Fail(at, L"Stack overflow: expression or calls nested too deeply");
        return true;
    }
    // Calls callee with the values of a call node's arguments.
    Value Call(const Node& site, const Value& callee,
               const std::vector<std::unique_ptr<Node>>& args,
               const std::vector<std::wstring>& keywordNames,
               const std::vector<std::unique_ptr<Node>>& keywordValues);
    Value MakeFunction(const FunctionNode& def);
    Value& Local(int slot) { return frame_[slot]; }
    Value& Upvalue(int index);
    // A global's value; an unassigned name may stand for something of the scene (a
    // static interface, a registered function, a class).
    Value GlobalValue(const VarNode& var);
    void SetGlobal(int index, Value v);
    // While a catch handler runs, its error text is the current exception.
    void PushException(std::wstring text) { exceptions_.push_back(std::move(text)); }
    void PopException() { exceptions_.pop_back(); }
    std::optional<TimeValue> atTime;

    Signal signal = Signal::None;
    Value pending;  // the value of a return or of `exit with`
    ScriptFailure error;

private:
    // Pushes the arguments onto the value stack; false when one failed.
    bool PushArgs(const std::vector<std::unique_ptr<Node>>& args);
    Value CallFunction(const Node& site, const FunctionObject& fn, Value* base, int positional,
                       const std::vector<std::wstring>& keywordNames,
                       const std::vector<std::unique_ptr<Node>>& keywordValues);
    bool BindKeywords(const FunctionObject& fn, Value* base,
                      const std::vector<std::wstring>& keywordNames,
                      const std::vector<std::unique_ptr<Node>>& keywordValues);
    // Clears the stack down to base.
    void PopTo(Value* base);
    Value RunProgram(const Program& program);

    // Native stack a script may use below where its run began: well inside the 8 MB a
    // thread has, with room for the sanitizers' larger frames.
    static constexpr uintptr_t kNativeStackBudget = 3u << 20;

    Globals globals_;
    uintptr_t stackBase_ = 0;
    int running_ = 0;                   // nested runs of this interpreter
    static inline int activeRuns_ = 0;  // runs of every interpreter under way
    std::unique_ptr<Value[]> stack_;
    Value* stackEnd_ = nullptr;
    Value* top_ = nullptr;    // first free slot; every slot from here up is undefined
    Value* frame_ = nullptr;  // the running function's slot 0
    const FunctionObject* closure_ = nullptr;
    const Program* program_ = nullptr;
    int depth_ = 0;
    int64_t steps_ = 0;
    int64_t stepLimit_ = 0;
    uint64_t random_ = 0x2545F4914F6CDD1DULL;
    std::vector<std::wstring> exceptions_;
};

}  // namespace host::script
