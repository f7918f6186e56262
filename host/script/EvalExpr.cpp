// Evaluation of the expression nodes: variables, literals, operators, members, items.

#include "host/script/ExprNodes.h"
#include "host/script/Interpreter.h"
#include "host/script/Members.h"
#include "host/script/Operators.h"
#include "host/script/TarnixNode.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

bool IsTrue(Interpreter& in, const Node& at, const Value& v) {
    if (v.IsBool()) return v.AsBool();
    in.Fail(at, L"Expected a Boolean, got " + PrintText(v));
    return false;
}

}  // namespace

Value AssignableNode::Assign(Interpreter& in, BinaryOp op, const Node& rhs) const {
    Value v = rhs.Eval(in);
    if (in.Unwinding()) return Value();
    if (op != BinaryOp::None) {
        Value current = Eval(in);
        if (in.Unwinding()) return Value();
        v = Arithmetic(in, *this, op, current, v);
        if (in.Unwinding()) return Value();
    }
    Store(in, v);
    return v;
}

Value VarNode::Eval(Interpreter& in) const {
    switch (kind) {
        case Kind::Local: {
            const Value& slot = in.Local(local->slot);
            return local->captured ? slot.As<CellObject>().value : slot;
        }
        case Kind::Upvalue:
            return in.Upvalue(index);
        case Kind::Global:
            return in.GlobalValue(*this);
    }
    return Value();
}

void VarNode::Store(Interpreter& in, Value v) const {
    switch (kind) {
        case Kind::Local: {
            Value& slot = in.Local(local->slot);
            if (local->captured)
                slot.As<CellObject>().value = std::move(v);
            else
                slot = std::move(v);
            return;
        }
        case Kind::Upvalue:
            in.Upvalue(index) = std::move(v);
            return;
        case Kind::Global:
            in.SetGlobal(index, std::move(v));
            return;
    }
}

Value VarNode::Assign(Interpreter& in, BinaryOp op, const Node& rhs) const {
    Value v = rhs.Eval(in);
    if (in.Unwinding()) return Value();
    if (op == BinaryOp::None) {
        Store(in, v);
        return v;
    }
    const Value current = Eval(in);
    if (in.Unwinding()) return Value();
    // The loop counter's `x += i` stays on integers without the general dispatch.
    if (op == BinaryOp::Add && current.IsInteger() && v.IsInteger())
        v = Value::Integer(int64_t(uint64_t(current.AsInteger()) + uint64_t(v.AsInteger())));
    else
        v = Arithmetic(in, *this, op, current, v);
    if (in.Unwinding()) return Value();
    Store(in, v);
    return v;
}

Value NodePathNode::Eval(Interpreter& in) const {
    Value node = FindNodeValue(name);
    if (node.IsUndefined()) return in.Fail(*this, L"No node named $" + name);
    return node;
}

Value ArrayNode::Eval(Interpreter& in) const {
    std::vector<Value> values;
    values.reserve(items.size());
    for (const NodePtr& item : items) {
        values.push_back(item->Eval(in));
        if (in.Unwinding()) return Value();
    }
    return MakeArray(std::move(values));
}

Value PointNode::Eval(Interpreter& in) const {
    float c[3] = {0.0f, 0.0f, 0.0f};
    for (size_t i = 0; i < items.size(); ++i) {
        const Value v = items[i]->Eval(in);
        if (in.Unwinding()) return Value();
        if (!v.IsNumber())
            return in.Fail(*items[i], L"Expected a number in a point, got " + PrintText(v));
        c[i] = float(v.AsNumber());
    }
    return items.size() == 2 ? MakePoint2(c[0], c[1]) : MakePoint3(Point3(c[0], c[1], c[2]));
}

Value BlockNode::Eval(Interpreter& in) const {
    if (in.StackExhausted(*this)) return Value();
    Value last;
    for (const NodePtr& item : items) {
        last = item->Eval(in);
        if (in.Unwinding()) return Value();
    }
    return last;
}

Value NegateNode::Eval(Interpreter& in) const {
    const Value v = operand->Eval(in);
    if (in.Unwinding()) return Value();
    return Negate(in, *this, v);
}

Value NotNode::Eval(Interpreter& in) const {
    const Value v = operand->Eval(in);
    if (in.Unwinding()) return Value();
    const bool b = IsTrue(in, *operand, v);
    return in.Unwinding() ? Value() : Value::Bool(!b);
}

Value BinaryNode::Eval(Interpreter& in) const {
    if (in.StackExhausted(*this)) return Value();
    const Value a = lhs->Eval(in);
    if (in.Unwinding()) return Value();
    const Value b = rhs->Eval(in);
    if (in.Unwinding()) return Value();
    // Small integers first: the common case of loops and recursion.
    if (a.IsInteger() && b.IsInteger()) {
        const int64_t x = a.AsInteger(), y = b.AsInteger();
        switch (op) {
            case BinaryOp::Add:
                return Value::Integer(int64_t(uint64_t(x) + uint64_t(y)));
            case BinaryOp::Sub:
                return Value::Integer(int64_t(uint64_t(x) - uint64_t(y)));
            case BinaryOp::Lt:
                return Value::Bool(x < y);
            case BinaryOp::Gt:
                return Value::Bool(x > y);
            default:
                break;
        }
    }
    return Arithmetic(in, *this, op, a, b);
}

Value LogicNode::Eval(Interpreter& in) const {
    const Value a = lhs->Eval(in);
    if (in.Unwinding()) return Value();
    const bool first = IsTrue(in, *lhs, a);
    if (in.Unwinding()) return Value();
    if (first != isAnd) return Value::Bool(first);
    const Value b = rhs->Eval(in);
    if (in.Unwinding()) return Value();
    const bool second = IsTrue(in, *rhs, b);
    return in.Unwinding() ? Value() : Value::Bool(second);
}

Value MemberNode::Eval(Interpreter& in) const {
    const Value o = object->Eval(in);
    if (in.Unwinding()) return Value();
    return GetMember(in, *this, o, name);
}

void MemberNode::Store(Interpreter& in, Value v) const {
    const Value o = object->Eval(in);
    if (in.Unwinding()) return;
    Value changed;
    if (!SetMember(in, *this, o, name, v, changed) || changed.IsUndefined()) return;
    // A point's component changed: store the new point where the old one came from.
    if (!object->IsAssignable()) return;
    static_cast<const AssignableNode&>(*object).Store(in, std::move(changed));
}

Value IndexNode::Eval(Interpreter& in) const {
    const Value o = object->Eval(in);
    if (in.Unwinding()) return Value();
    const Value i = index->Eval(in);
    if (in.Unwinding()) return Value();
    return GetItem(in, *this, o, i);
}

void IndexNode::Store(Interpreter& in, Value v) const {
    const Value o = object->Eval(in);
    if (in.Unwinding()) return;
    const Value i = index->Eval(in);
    if (in.Unwinding()) return;
    SetItem(in, *this, o, i, v);
}

Value CallNode::Eval(Interpreter& in) const {
    const Value f = callee->Eval(in);
    if (in.Unwinding()) return Value();
    return in.Call(*this, f, args, keywordNames, keywordValues);
}

}  // namespace host::script
