// Evaluation of control flow, declarations, functions, try/catch and the contexts.

#include <cmath>

#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/script/ControlNodes.h"
#include "host/script/Interpreter.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

// The condition's truth, or false with an error raised when it is no Boolean.
bool Condition(Interpreter& in, const Node& condition, bool& truth) {
    const Value v = condition.Eval(in);
    if (in.Unwinding()) return false;
    if (!v.IsBool()) {
        in.Fail(condition, L"Expected a Boolean, got " + PrintText(v));
        return false;
    }
    truth = v.AsBool();
    return true;
}

// After one pass of a loop body: handles continue and exit. False when the loop ends,
// with result set for an exit.
bool AfterPass(Interpreter& in, Value& result) {
    switch (in.signal) {
        case Signal::None:
            return true;
        case Signal::Continue:
            in.signal = Signal::None;
            return true;
        case Signal::Exit:
            in.signal = Signal::None;
            result = std::move(in.pending);
            in.pending = Value();
            return false;
        default:
            return false;
    }
}

bool Number(Interpreter& in, const Node& at, const Value& v, const wchar_t* what) {
    if (v.IsNumber()) return true;
    in.Fail(at,
            std::wstring(L"Expected a number for the loop's ") + what + L", got " + PrintText(v));
    return false;
}

}  // namespace

Value IfNode::Eval(Interpreter& in) const {
    bool truth = false;
    if (!Condition(in, *condition, truth)) return Value();
    if (truth) return then->Eval(in);
    return otherwise ? otherwise->Eval(in) : Value();
}

Value WhileNode::Eval(Interpreter& in) const {
    Value last;
    bool truth = true;
    if (!bodyFirst && !Condition(in, *condition, truth)) return Value();
    while (truth) {
        if (!in.Tick(*this)) return Value();
        last = body->Eval(in);
        if (!AfterPass(in, last)) return in.Unwinding() ? Value() : last;
        if (!Condition(in, *condition, truth)) return Value();
    }
    return last;
}

bool ForNode::Step(Interpreter& in, std::vector<Value>* collected) const {
    if (!in.Tick(*this)) return false;
    Value v = body->Eval(in);
    if (in.signal == Signal::Continue) {
        in.signal = Signal::None;
        return true;
    }
    if (in.Unwinding()) return false;
    if (collected) collected->push_back(std::move(v));
    return true;
}

Value ForNode::Eval(Interpreter& in) const {
    return sequence ? SequenceLoop(in) : RangeLoop(in);
}

Value ForNode::RangeLoop(Interpreter& in) const {
    const Value first = from->Eval(in);
    if (in.Unwinding() || !Number(in, *from, first, L"start")) return Value();
    const Value last = to->Eval(in);
    if (in.Unwinding() || !Number(in, *to, last, L"end")) return Value();
    Value step = Value::Integer(1);
    if (by) {
        step = by->Eval(in);
        if (in.Unwinding() || !Number(in, *by, step, L"step")) return Value();
        if (step.AsNumber() == 0.0) return in.Fail(*by, L"The loop's step is zero");
    }
    std::vector<Value> collected;
    std::vector<Value>* sink = collect ? &collected : nullptr;
    if (first.IsInteger() && last.IsInteger() && step.IsInteger()) {
        const int64_t end = last.AsInteger(), delta = step.AsInteger();
        for (int64_t i = first.AsInteger(); delta > 0 ? i <= end : i >= end;) {
            variable->Store(in, Value::Integer(i));
            if (!Step(in, sink)) break;
            // Stop before the counter would wrap past the end.
            if (__builtin_add_overflow(i, delta, &i)) break;
        }
    } else {
        const double end = last.AsNumber(), delta = step.AsNumber();
        for (double x = first.AsNumber(); delta > 0 ? x <= end : x >= end; x += delta) {
            variable->Store(in, Value::Float(x));
            if (!Step(in, sink)) break;
        }
    }
    Value result = collect ? MakeArray(std::move(collected)) : Value::Ok();
    AfterPass(in, result);
    return in.Unwinding() ? Value() : result;
}

Value ForNode::SequenceLoop(Interpreter& in) const {
    const Value items = sequence->Eval(in);
    if (in.Unwinding()) return Value();
    if (items.tag() != Tag::Array && items.tag() != Tag::String)
        return in.Fail(*sequence, L"Cannot loop over " + PrintText(items));
    std::vector<Value> collected;
    std::vector<Value>* sink = collect ? &collected : nullptr;
    // By index against the present size, so that a body that changes the array is safe.
    for (size_t i = 0;; ++i) {
        if (items.tag() == Tag::Array) {
            const auto& array = items.As<ArrayObject>().items;
            if (i >= array.size()) break;
            variable->Store(in, array[i]);
        } else {
            if (i >= TextOf(items).size()) break;
            variable->Store(in, MakeString(TextOf(items).substr(i, 1)));
        }
        if (!Step(in, sink)) break;
    }
    Value result = collect ? MakeArray(std::move(collected)) : Value::Ok();
    AfterPass(in, result);
    return in.Unwinding() ? Value() : result;
}

Value JumpNode::Eval(Interpreter& in) const {
    Value v = kind == Kind::Return ? Value::Ok() : Value();
    if (value) {
        v = value->Eval(in);
        if (in.Unwinding()) return Value();
    }
    switch (kind) {
        case Kind::Exit:
            in.signal = Signal::Exit;
            break;
        case Kind::Continue:
            in.signal = Signal::Continue;
            break;
        case Kind::Return:
            in.signal = Signal::Return;
            break;
        case Kind::Throw:
            if (value) return in.Fail(*this, PlainText(v));
            if (in.CurrentException().empty())
                return in.Fail(*this, L"throw without a value outside a catch");
            return in.Fail(*this, in.CurrentException());
    }
    in.pending = std::move(v);
    return Value();
}

Value DeclareNode::Eval(Interpreter& in) const {
    Value last;
    for (size_t i = 0; i < variables.size(); ++i) {
        const bool keep = !values[i] && variables[i]->kind == VarNode::Kind::Global;
        if (keep) {  // `global x` declares without changing the value
            last = variables[i]->Eval(in);
            continue;
        }
        last = values[i] ? values[i]->Eval(in) : Value();
        if (in.Unwinding()) return Value();
        variables[i]->Store(in, last);
    }
    return last;
}

Value FunctionNode::Eval(Interpreter& in) const {
    Value fn = in.MakeFunction(*this);
    target->Store(in, fn);
    return fn;
}

Value TryNode::Eval(Interpreter& in) const {
    Value v = body->Eval(in);
    if (in.signal != Signal::Error) return v;
    in.signal = Signal::None;
    in.PushException(std::move(in.error.message));
    in.error = ScriptFailure();
    v = handler->Eval(in);
    in.PopException();
    return v;
}

Value ContextNode::Eval(Interpreter& in) const {
    switch (kind) {
        case Kind::Undo:
            return EvalUndo(in);
        case Kind::Animate:
            return EvalAnimate(in);
        case Kind::AtTime:
            return EvalAtTime(in);
    }
    return Value();
}

Value ContextNode::EvalUndo(Interpreter& in) const {
    std::wstring name = L"TarnixScript";
    if (undoName) {
        const Value v = undoName->Eval(in);
        if (in.Unwinding()) return Value();
        name = PlainText(v);
    }
    bool on = false;
    if (!Condition(in, *setting, on)) return Value();
    if (!on) {
        theHold.Suspend();
        Value v = body->Eval(in);
        theHold.Resume();
        return v;
    }
    // One undo step for the body, merged into a hold that is already open; an error
    // takes back what the body did before it.
    theHold.Begin();
    Value v = body->Eval(in);
    if (in.signal == Signal::Error)
        theHold.Cancel();
    else
        theHold.Accept(WStr(name));
    return v;
}

Value ContextNode::EvalAnimate(Interpreter& in) const {
    bool on = false;
    if (!Condition(in, *setting, on)) return Value();
    const bool was = Animating();
    on ? AnimateOn() : AnimateOff();
    Value v = body->Eval(in);
    was ? AnimateOn() : AnimateOff();
    return v;
}

Value ContextNode::EvalAtTime(Interpreter& in) const {
    const Value frame = setting->Eval(in);
    if (in.Unwinding()) return Value();
    if (!frame.IsNumber())
        return in.Fail(*setting, L"Expected a frame number, got " + PrintText(frame));
    const double ticks = frame.AsNumber() * GetCOREInterface()->GetTicksPerFrame();
    if (!(std::fabs(ticks) < 2147483647.0))
        return in.Fail(*setting, L"Time out of range: " + PrintText(frame));
    const std::optional<TimeValue> saved = in.atTime;
    in.atTime = TimeValue(std::lround(ticks));
    Value v = body->Eval(in);
    in.atTime = saved;
    return v;
}

}  // namespace host::script
