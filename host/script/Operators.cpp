#include "host/script/Operators.h"

#include <cmath>
#include <cwctype>

#include "host/script/Interpreter.h"
#include "host/script/ObjectValue.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

const wchar_t* OpText(BinaryOp op) {
    static constexpr const wchar_t* kText[] = {L"=",  L"+",  L"-", L"*",  L"/", L"^",
                                               L"==", L"!=", L"<", L"<=", L">", L">="};
    return kText[size_t(op)];
}

Value NoOperator(Interpreter& in, const Node& at, BinaryOp op, const Value& a, const Value& b) {
    return in.Fail(at, std::wstring(L"No \"") + OpText(op) + L"\" function for " + PrintText(a) +
                           L" and " + PrintText(b));
}

// Integer arithmetic wraps like the hardware instead of being undefined on overflow.
int64_t Wrap(uint64_t v) {
    return static_cast<int64_t>(v);
}

int64_t IntegerPower(int64_t base, int64_t exponent) {
    uint64_t result = 1, b = uint64_t(base);
    for (; exponent > 0; exponent >>= 1) {
        if (exponent & 1) result *= b;
        b *= b;
    }
    return Wrap(result);
}

// The comparisons, the same for integers and floats.
template <typename T>
Value Compare(BinaryOp op, T a, T b) {
    switch (op) {
        case BinaryOp::Lt:
            return Value::Bool(a < b);
        case BinaryOp::Le:
            return Value::Bool(a <= b);
        case BinaryOp::Gt:
            return Value::Bool(a > b);
        case BinaryOp::Ge:
            return Value::Bool(a >= b);
        case BinaryOp::Eq:
            return Value::Bool(a == b);
        case BinaryOp::Ne:
            return Value::Bool(a != b);
        default:
            return Value();
    }
}

Value IntegerOp(Interpreter& in, const Node& at, BinaryOp op, int64_t a, int64_t b) {
    switch (op) {
        case BinaryOp::Add:
            return Value::Integer(Wrap(uint64_t(a) + uint64_t(b)));
        case BinaryOp::Sub:
            return Value::Integer(Wrap(uint64_t(a) - uint64_t(b)));
        case BinaryOp::Mul:
            return Value::Integer(Wrap(uint64_t(a) * uint64_t(b)));
        case BinaryOp::Div:
            if (b == 0) return in.Fail(at, L"Divide by zero");
            if (b == -1) return Value::Integer(Wrap(0ULL - uint64_t(a)));
            return Value::Integer(a / b);
        case BinaryOp::Pow:
            if (b < 0) return Value::Float(std::pow(double(a), double(b)));
            return Value::Integer(IntegerPower(a, b));
        default:
            return Compare(op, a, b);
    }
}

Value FloatOp(Interpreter& in, const Node& at, BinaryOp op, double a, double b) {
    switch (op) {
        case BinaryOp::Add:
            return Value::Float(a + b);
        case BinaryOp::Sub:
            return Value::Float(a - b);
        case BinaryOp::Mul:
            return Value::Float(a * b);
        case BinaryOp::Div:
            if (b == 0.0) return in.Fail(at, L"Divide by zero");
            return Value::Float(a / b);
        case BinaryOp::Pow:
            return Value::Float(std::pow(a, b));
        default:
            return Compare(op, a, b);
    }
}

bool IsPoint(const Value& v) {
    return v.tag() == Tag::Point2 || v.tag() == Tag::Point3;
}

Value PointOp(Interpreter& in, const Node& at, BinaryOp op, const Value& a, const Value& b) {
    const Tag tag = IsPoint(a) ? a.tag() : b.tag();
    auto make = [tag](const Point3& p) { return MakeHeap<PointObject>(tag, p); };
    if (IsPoint(a) && IsPoint(b) && a.tag() == b.tag()) {
        const Point3& p = a.As<PointObject>().point;
        const Point3& q = b.As<PointObject>().point;
        if (op == BinaryOp::Add) return make(p + q);
        if (op == BinaryOp::Sub) return make(p - q);
    } else if (IsPoint(a) && b.IsNumber()) {
        const Point3& p = a.As<PointObject>().point;
        const float f = float(b.AsNumber());
        if (op == BinaryOp::Mul) return make(p * f);
        if (op == BinaryOp::Div && f != 0.0f) return make(p / f);
        if (op == BinaryOp::Div) return in.Fail(at, L"Divide by zero");
    } else if (a.IsNumber() && IsPoint(b) && op == BinaryOp::Mul) {
        return make(b.As<PointObject>().point * float(a.AsNumber()));
    }
    return NoOperator(in, at, op, a, b);
}

Value StringOp(Interpreter& in, const Node& at, BinaryOp op, const Value& a, const Value& b) {
    if (a.tag() == Tag::String && op == BinaryOp::Add) return MakeString(TextOf(a) + PlainText(b));
    if (a.tag() != Tag::String || b.tag() != Tag::String) return NoOperator(in, at, op, a, b);
    const int order = TextOf(a).compare(TextOf(b));
    switch (op) {
        case BinaryOp::Lt:
            return Value::Bool(order < 0);
        case BinaryOp::Le:
            return Value::Bool(order <= 0);
        case BinaryOp::Gt:
            return Value::Bool(order > 0);
        case BinaryOp::Ge:
            return Value::Bool(order >= 0);
        default:
            return NoOperator(in, at, op, a, b);
    }
}

bool SameTextIgnoringCase(const std::wstring& a, const std::wstring& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::towlower(wint_t(a[i])) != std::towlower(wint_t(b[i]))) return false;
    return true;
}

}  // namespace

Value Arithmetic(Interpreter& in, const Node& at, BinaryOp op, const Value& a, const Value& b) {
    if (op == BinaryOp::Eq) return Value::Bool(Equal(a, b));
    if (op == BinaryOp::Ne) return Value::Bool(!Equal(a, b));
    if (a.IsInteger() && b.IsInteger()) return IntegerOp(in, at, op, a.AsInteger(), b.AsInteger());
    if (a.IsNumber() && b.IsNumber()) return FloatOp(in, at, op, a.AsNumber(), b.AsNumber());
    if (IsPoint(a) || IsPoint(b)) return PointOp(in, at, op, a, b);
    if (a.tag() == Tag::String) return StringOp(in, at, op, a, b);
    return NoOperator(in, at, op, a, b);
}

Value Negate(Interpreter& in, const Node& at, const Value& v) {
    if (v.IsInteger()) return Value::Integer(Wrap(0ULL - uint64_t(v.AsInteger())));
    if (v.IsFloat()) return Value::Float(-v.AsFloat());
    if (IsPoint(v)) return MakeHeap<PointObject>(v.tag(), -v.As<PointObject>().point);
    return in.Fail(at, L"No \"-\" function for " + PrintText(v));
}

bool Equal(const Value& a, const Value& b) {
    if (a.IsNumber() && b.IsNumber())
        return a.IsInteger() && b.IsInteger() ? a.AsInteger() == b.AsInteger()
                                              : a.AsNumber() == b.AsNumber();
    if (a.tag() != b.tag()) return false;
    switch (a.tag()) {
        case Tag::Undefined:
        case Tag::Ok:
            return true;
        case Tag::Bool:
            return a.AsBool() == b.AsBool();
        case Tag::String:
            return TextOf(a) == TextOf(b);
        case Tag::Name:
            return SameTextIgnoringCase(TextOf(a), TextOf(b));
        case Tag::Point2:
        case Tag::Point3:
            return a.As<PointObject>().point == b.As<PointObject>().point;
        case Tag::Array:
        case Tag::Function:
        case Tag::Primitive:
        case Tag::Cell:
            return a.AsHeap() == b.AsHeap();
        default:
            return a.As<ObjectValue>().Equals(b.As<ObjectValue>());
    }
}

}  // namespace host::script
