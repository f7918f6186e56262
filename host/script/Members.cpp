#include "host/script/Members.h"

#include "host/script/Interpreter.h"
#include "host/script/ObjectValue.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

int PointComponent(const Value& point, const std::wstring& name) {
    if (name == L"x") return 0;
    if (name == L"y") return 1;
    if (name == L"z" && point.tag() == Tag::Point3) return 2;
    return -1;
}

Value UnknownProperty(Interpreter& in, const Node& at, const Value& object,
                      const std::wstring& name) {
    return in.Fail(at, L"Unknown property: \"" + name + L"\" in " + PrintText(object));
}

// Runs a scene value's accessor, turning the C++ errors it raises into script errors.
template <typename F>
bool Guarded(Interpreter& in, const Node& at, F&& f) {
    try {
        return f();
    } catch (const ScriptException& e) {
        in.Fail(at, e.Message().str());
        return true;
    }
}

// The 0-based position of a 1-based index, or -1 after raising the error.
int64_t Position(Interpreter& in, const Node& at, const Value& index) {
    if (!index.IsInteger()) {
        in.Fail(at, L"Array index must be an integer, got " + PrintText(index));
        return -1;
    }
    if (index.AsInteger() < 1) {
        in.Fail(at, L"Array index out of range: " + PrintText(index));
        return -1;
    }
    return index.AsInteger() - 1;
}

}  // namespace

Value GetMember(Interpreter& in, const Node& at, const Value& object, const std::wstring& name) {
    switch (object.tag()) {
        case Tag::Point2:
        case Tag::Point3: {
            const int i = PointComponent(object, name);
            if (i < 0) break;
            return Value::Float(object.As<PointObject>().point[i]);
        }
        case Tag::Array:
            if (name != L"count") break;
            return Value::Integer(int64_t(object.As<ArrayObject>().items.size()));
        case Tag::String:
            if (name != L"count") break;
            return Value::Integer(int64_t(TextOf(object).size()));
        case Tag::Undefined:
        case Tag::Ok:
        case Tag::Bool:
        case Tag::Integer:
        case Tag::Float:
        case Tag::Name:
        case Tag::Function:
        case Tag::Primitive:
        case Tag::Cell:
            break;
        default: {
            Value result;
            auto& scene = object.As<ObjectValue>();
            if (!Guarded(in, at, [&] { return scene.GetProperty(in, name, result); })) break;
            return result;
        }
    }
    return UnknownProperty(in, at, object, name);
}

bool SetMember(Interpreter& in, const Node& at, const Value& object, const std::wstring& name,
               const Value& v, Value& changedObject) {
    if (object.tag() == Tag::Point2 || object.tag() == Tag::Point3) {
        const int i = PointComponent(object, name);
        if (i >= 0 && v.IsNumber()) {
            Point3 p = object.As<PointObject>().point;
            p[i] = float(v.AsNumber());
            changedObject = MakeHeap<PointObject>(object.tag(), p);
            return true;
        }
        if (i >= 0) {
            in.Fail(at, L"Expected a number for ." + name + L", got " + PrintText(v));
            return false;
        }
    } else if (object.tag() > Tag::Cell) {
        auto& scene = object.As<ObjectValue>();
        if (Guarded(in, at, [&] { return scene.SetProperty(in, name, v); })) return !in.Unwinding();
    }
    UnknownProperty(in, at, object, name);
    return false;
}

Value GetItem(Interpreter& in, const Node& at, const Value& object, const Value& index) {
    if (object.tag() != Tag::Array && object.tag() != Tag::String)
        return in.Fail(at, L"Cannot index " + PrintText(object));
    const int64_t i = Position(in, at, index);
    if (i < 0) return Value();
    if (object.tag() == Tag::String) {
        const std::wstring& text = TextOf(object);
        if (uint64_t(i) >= text.size()) return Value();
        return MakeString(text.substr(size_t(i), 1));
    }
    const auto& items = object.As<ArrayObject>().items;
    return uint64_t(i) < items.size() ? items[size_t(i)] : Value();
}

void SetItem(Interpreter& in, const Node& at, const Value& object, const Value& index,
             const Value& v) {
    if (object.tag() != Tag::Array) {
        in.Fail(at, L"Cannot set an item of " + PrintText(object));
        return;
    }
    const int64_t i = Position(in, at, index);
    if (i < 0) return;
    // An array grows to take an item past its end; the gap fills with undefined. The
    // growth is bounded so that a stray index cannot exhaust memory.
    constexpr int64_t kMaxGrowth = 1 << 20;
    auto& items = object.As<ArrayObject>().items;
    if (uint64_t(i) >= items.size()) {
        if (i - int64_t(items.size()) > kMaxGrowth) {
            in.Fail(at, L"Array index out of range: " + PrintText(index));
            return;
        }
        items.resize(size_t(i) + 1);
    }
    items[size_t(i)] = v;
}

}  // namespace host::script
