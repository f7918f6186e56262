#include "host/script/Interpreter.h"

#include "host/object/Interface.h"
#include "host/script/CoreBuiltins.h"
#include "host/script/CycleCollector.h"
#include "host/script/Parser.h"
#include "host/script/Program.h"
#include "host/script/SceneBuiltins.h"
#include "host/script/SceneGlobals.h"
#include "host/script/ServiceBuiltins.h"
#include "host/script/SyntaxError.h"
#include "host/script/ValueObjects.h"

namespace host::script {

namespace {

// Value slots for all running frames together, and how deep calls may nest: enough for
// any sensible recursion, small enough that the native stack never runs out first.
constexpr size_t kStackSlots = 1 << 16;

}  // namespace

std::wstring ScriptFailure::Report() const {
    std::wstring text = syntax ? L"-- Syntax error: " : L"-- Runtime error: ";
    text += message;
    if (line > 0)
        text += L" (line " + std::to_wstring(line) + L", column " + std::to_wstring(column) + L")";
    return text;
}

Interpreter::Interpreter()
    : stack_(std::make_unique<Value[]>(kStackSlots)),
      stackEnd_(stack_.get() + kStackSlots),
      top_(stack_.get()),
      frame_(stack_.get()) {
    DefineCoreBuiltins(*this);
    DefineSceneBuiltins(*this);
    DefineServiceBuiltins(*this);
}

Interpreter::~Interpreter() {
    // Functions in globals may hold cells that point back at globals' values; clearing
    // the values first lets every count reach zero.
    PopTo(stack_.get());
    globals_.ReleaseValues();
    if (activeRuns_ == 0) CycleCollector::Collect();
}

void Interpreter::DefinePrimitive(const std::wstring& name, PrimitiveFn fn) {
    globals_.Define(name, MakeHeap<PrimitiveObject>(Tag::Primitive, name, std::move(fn)));
}

void Interpreter::DefinePrimitives(std::span<const BuiltinFunction> table) {
    for (const BuiltinFunction& b : table) DefinePrimitive(b.name, b.fn);
}

TimeValue Interpreter::CurrentTime() const {
    return atTime ? *atTime : GetCOREInterface()->GetTime();
}

void Interpreter::Print(const std::wstring& text) {
    GetCOREInterface()->Print(WStr(text));
}

uint64_t Interpreter::NextRandom() {
    // xorshift64*: small, fast and the same sequence on every platform for a seed.
    random_ ^= random_ >> 12;
    random_ ^= random_ << 25;
    random_ ^= random_ >> 27;
    return random_ * 0x2545F4914F6CDD1DULL;
}

const std::wstring& Interpreter::CurrentException() const {
    static const std::wstring none;
    return exceptions_.empty() ? none : exceptions_.back();
}

Value Interpreter::Fail(const Node& at, std::wstring message) {
    if (signal == Signal::Error) return Value();  // the first error is the one reported
    signal = Signal::Error;
    pending = Value();
    error = ScriptFailure{std::move(message), at.line, at.column, false};
    return Value();
}

Value& Interpreter::Upvalue(int index) {
    return closure_->cells[size_t(index)].As<CellObject>().value;
}

Value Interpreter::GlobalValue(const VarNode& var) {
    const Globals::Slot& slot = globals_[var.index];
    if (slot.defined) return slot.value;
    return FindSceneGlobal(var.name);
}

void Interpreter::SetGlobal(int index, Value v) {
    Globals::Slot& slot = globals_[index];
    slot.value = std::move(v);
    slot.defined = true;
}

bool Interpreter::Run(std::wstring_view text, Value& result, ScriptFailure& failure) {
    std::shared_ptr<Program> program;
    try {
        program = Parser::Parse(text, globals_);
    } catch (const SyntaxError& e) {
        failure = ScriptFailure{e.message, e.line, e.column, true};
        return false;
    }
    if (running_++ == 0) {
        steps_ = 0;
        stackBase_ = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    }
    ++activeRuns_;
    result = RunProgram(*program);
    --running_;
    // Loops of containers that the run left behind go once no script of any interpreter
    // is running (a built-in may run a script of another).
    if (--activeRuns_ == 0) CycleCollector::Collect();
    if (signal == Signal::None) return true;
    failure = error;
    signal = Signal::None;
    pending = Value();
    result = Value();
    return false;
}

Value Interpreter::RunProgram(const Program& program) {
    Value* base = top_;
    if (base + program.frameSize > stackEnd_) {
        signal = Signal::Error;
        error = ScriptFailure{L"Stack overflow", 0, 0, false};
        return Value();
    }
    Value* savedFrame = frame_;
    const FunctionObject* savedClosure = closure_;
    const Program* savedProgram = program_;
    frame_ = base;
    top_ = base + program.frameSize;
    closure_ = nullptr;
    program_ = &program;
    for (const VarInfo* v : program.capturedLocals) base[v->slot] = MakeHeap<CellObject>(Tag::Cell);
    Value result = program.body->Eval(*this);
    PopTo(base);
    frame_ = savedFrame;
    closure_ = savedClosure;
    program_ = savedProgram;
    return result;
}

void Interpreter::PopTo(Value* base) {
    while (top_ > base) *--top_ = Value();
}

Value Interpreter::MakeFunction(const FunctionNode& def) {
    auto* fn = new FunctionObject;
    Value value = Value::Heap(Tag::Function, fn);
    fn->program = program_->shared_from_this();
    fn->def = &def;
    fn->cells.reserve(def.upvalues.size());
    for (const UpvalueSource& source : def.upvalues)
        fn->cells.push_back(source.fromLocal ? frame_[source.index]
                                             : closure_->cells[size_t(source.index)]);
    return value;
}

}  // namespace host::script
