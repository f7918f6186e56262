#include "host/script/CoreBuiltins.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/script/ClassValue.h"
#include "host/script/Interpreter.h"
#include "host/script/Operators.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

double NumberArg(const CallArgs& args, int i, const wchar_t* function) {
    if (!args[i].IsNumber())
        throw RuntimeError(WStr(std::wstring(L"Expected a number in ") + function + L", got " +
                                PrintText(args[i])));
    return args[i].AsNumber();
}

ArrayObject& ArrayArg(const CallArgs& args, int i, const wchar_t* function) {
    if (args[i].tag() != Tag::Array)
        throw RuntimeError(WStr(std::wstring(L"Expected an array in ") + function + L", got " +
                                PrintText(args[i])));
    return args[i].As<ArrayObject>();
}

// Functions of one number giving a float; trigonometry works in degrees.
struct MathFunction {
    const wchar_t* name;
    double (*fn)(double);
};
constexpr MathFunction kMathFunctions[] = {
    {L"sin", [](double x) { return std::sin(x / kDegrees); }},
    {L"cos", [](double x) { return std::cos(x / kDegrees); }},
    {L"tan", [](double x) { return std::tan(x / kDegrees); }},
    {L"asin", [](double x) { return std::asin(x) * kDegrees; }},
    {L"acos", [](double x) { return std::acos(x) * kDegrees; }},
    {L"atan", [](double x) { return std::atan(x) * kDegrees; }},
    {L"sqrt", [](double x) { return std::sqrt(x); }},
    {L"exp", [](double x) { return std::exp(x); }},
    {L"log", [](double x) { return std::log(x); }},
    {L"floor", [](double x) { return std::floor(x); }},
    {L"ceil", [](double x) { return std::ceil(x); }},
};

Value Print(CallArgs& args) {
    args.CheckCount(L"print", 1);
    args.interpreter.Print(PrintText(args[0]) + L"\n");
    return args[0];
}

// format "a % b %\n" x y: each % takes the next argument as plain text; \% is a percent.
Value Format(CallArgs& args) {
    if (args.Count() < 1 || args[0].tag() != Tag::String)
        throw RuntimeError(L"format needs a format string");
    const std::wstring& pattern = TextOf(args[0]);
    std::wstring out;
    int next = 1;
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == L'\\' && i + 1 < pattern.size() && pattern[i + 1] == L'%') {
            out += L'%';
            ++i;
        } else if (pattern[i] == L'%') {
            if (next >= args.Count())
                throw RuntimeError(L"format: too few arguments for the % in its text");
            out += PlainText(args[next++]);
        } else {
            out += pattern[i];
        }
    }
    if (next != args.Count()) throw RuntimeError(L"format: more arguments than % in its text");
    args.interpreter.Print(out);
    return Value::Ok();
}

Value Abs(CallArgs& args) {
    args.CheckCount(L"abs", 1);
    if (args[0].IsInteger())
        return Value::Integer(args[0].AsInteger() < 0
                                  ? int64_t(0ULL - uint64_t(args[0].AsInteger()))
                                  : args[0].AsInteger());
    return Value::Float(std::fabs(NumberArg(args, 0, L"abs")));
}

Value Atan2(CallArgs& args) {
    args.CheckCount(L"atan2", 2);
    return Value::Float(std::atan2(NumberArg(args, 0, L"atan2"), NumberArg(args, 1, L"atan2")) *
                        kDegrees);
}

Value Mod(CallArgs& args) {
    args.CheckCount(L"mod", 2);
    const double divisor = NumberArg(args, 1, L"mod");
    if (divisor == 0.0) throw RuntimeError(L"Divide by zero");
    return Value::Float(std::fmod(NumberArg(args, 0, L"mod"), divisor));
}

// random a b: an integer in [a, b] for integers, a float in [a, b] otherwise.
Value Random(CallArgs& args) {
    args.CheckCount(L"random", 2);
    const double a = NumberArg(args, 0, L"random"), b = NumberArg(args, 1, L"random");
    const uint64_t r = args.interpreter.NextRandom();
    if (args[0].IsInteger() && args[1].IsInteger()) {
        const int64_t lo = std::min(args[0].AsInteger(), args[1].AsInteger());
        const int64_t hi = std::max(args[0].AsInteger(), args[1].AsInteger());
        const uint64_t span = uint64_t(hi) - uint64_t(lo) + 1;
        return Value::Integer(int64_t(uint64_t(lo) + (span == 0 ? r : r % span)));
    }
    const double unit = double(r >> 11) / double(1ULL << 53);
    return Value::Float(a + (b - a) * unit);
}

Value Seed(CallArgs& args) {
    args.CheckCount(L"seed", 1);
    const double seed = NumberArg(args, 0, L"seed");
    if (!(std::fabs(seed) < 9.2e18)) throw RuntimeError(L"seed needs a number in integer range");
    args.interpreter.Seed(uint64_t(int64_t(seed)) | 1);
    return Value::Ok();
}

Value Append(CallArgs& args) {
    args.CheckCount(L"append", 2);
    ArrayArg(args, 0, L"append").items.push_back(args[1]);
    return args[0];
}

Value DeleteItem(CallArgs& args) {
    args.CheckCount(L"deleteItem", 2);
    auto& items = ArrayArg(args, 0, L"deleteItem").items;
    if (!args[1].IsInteger() || args[1].AsInteger() < 1 ||
        uint64_t(args[1].AsInteger()) > items.size())
        throw RuntimeError(WStr(L"Array index out of range: " + PrintText(args[1])));
    items.erase(items.begin() + (args[1].AsInteger() - 1));
    return args[0];
}

Value FindItem(CallArgs& args) {
    args.CheckCount(L"findItem", 2);
    const auto& items = ArrayArg(args, 0, L"findItem").items;
    for (size_t i = 0; i < items.size(); ++i)
        if (Equal(items[i], args[1])) return Value::Integer(int64_t(i) + 1);
    return Value::Integer(0);
}

Value GetCurrentException(CallArgs& args) {
    args.CheckCount(L"getCurrentException", 0);
    const std::wstring& text = args.interpreter.CurrentException();
    return text.empty() ? Value() : MakeString(text);
}

Value ClassOf(CallArgs& args) {
    args.CheckCount(L"classOf", 1);
    return ClassValue::Of(args[0]);
}

constexpr BuiltinFunction kBuiltins[] = {
    {L"print", Print},
    {L"format", Format},
    {L"abs", Abs},
    {L"atan2", Atan2},
    {L"mod", Mod},
    {L"random", Random},
    {L"seed", Seed},
    {L"append", Append},
    {L"deleteitem", DeleteItem},
    {L"finditem", FindItem},
    {L"getcurrentexception", GetCurrentException},
    {L"classof", ClassOf},
};

}  // namespace

void DefineCoreBuiltins(Interpreter& in) {
    in.DefinePrimitives(kBuiltins);
    for (const MathFunction& m : kMathFunctions) {
        in.DefinePrimitive(m.name, [m](CallArgs& args) {
            args.CheckCount(m.name, 1);
            return Value::Float(m.fn(NumberArg(args, 0, m.name)));
        });
    }
    in.GetGlobals().Define(L"pi", Value::Float(std::numbers::pi));
}

}  // namespace host::script
