#include "host/script/ValueText.h"

#include <cmath>
#include <cwchar>

#include "host/script/Callable.h"
#include "host/script/ControlNodes.h"
#include "host/script/ObjectValue.h"
#include "host/script/ValueObjects.h"

namespace host::script {

namespace {

std::wstring FloatText(double f) {
    if (std::isnan(f)) return L"nan";
    if (std::isinf(f)) return f < 0 ? L"-inf" : L"inf";
    wchar_t buffer[64];
    std::swprintf(buffer, 64, L"%.6g", f);
    std::wstring text(buffer);
    if (text.find_first_of(L".e") == std::wstring::npos) text += L".0";
    return text;
}

std::wstring QuotedText(const std::wstring& s) {
    std::wstring out = L"\"";
    for (wchar_t c : s) {
        switch (c) {
            case L'"':
                out += L"\\\"";
                break;
            case L'\\':
                out += L"\\\\";
                break;
            case L'\n':
                out += L"\\n";
                break;
            case L'\t':
                out += L"\\t";
                break;
            case L'\r':
                out += L"\\r";
                break;
            default:
                out += c;
        }
    }
    return out + L"\"";
}

std::wstring PointText(const Value& v) {
    const Point3& p = v.As<PointObject>().point;
    std::wstring text = L"[" + FloatText(p.x) + L"," + FloatText(p.y);
    if (v.tag() == Tag::Point3) text += L"," + FloatText(p.z);
    return text + L"]";
}

// Arrays may hold themselves: nesting past a few levels prints as "...".
std::wstring ArrayText(const Value& v, int depth) {
    constexpr int kMaxDepth = 8;
    if (depth > kMaxDepth) return L"...";
    std::wstring text = L"#(";
    const auto& items = v.As<ArrayObject>().items;
    for (size_t i = 0; i < items.size(); ++i) {
        if (i) text += L", ";
        text += items[i].tag() == Tag::Array ? ArrayText(items[i], depth + 1) : PrintText(items[i]);
    }
    return text + L")";
}

}  // namespace

std::wstring PrintText(const Value& v) {
    switch (v.tag()) {
        case Tag::Undefined:
            return L"undefined";
        case Tag::Ok:
            return L"OK";
        case Tag::Bool:
            return v.AsBool() ? L"true" : L"false";
        case Tag::Integer:
            return std::to_wstring(v.AsInteger());
        case Tag::Float:
            return FloatText(v.AsFloat());
        case Tag::String:
            return QuotedText(TextOf(v));
        case Tag::Name:
            return L"#" + TextOf(v);
        case Tag::Point2:
        case Tag::Point3:
            return PointText(v);
        case Tag::Array:
            return ArrayText(v, 0);
        case Tag::Function:
            return v.As<FunctionObject>().def->name + L"()";
        case Tag::Primitive:
            return v.As<PrimitiveObject>().name + L"()";
        case Tag::Cell:
            return PrintText(v.As<CellObject>().value);
        default:
            return v.As<ObjectValue>().Text();
    }
}

std::wstring PlainText(const Value& v) {
    return v.tag() == Tag::String || v.tag() == Tag::Name ? TextOf(v) : PrintText(v);
}

std::wstring KindName(const Value& v) {
    static constexpr const wchar_t* kNames[] = {L"UndefinedClass",
                                                L"OkClass",
                                                L"BooleanClass",
                                                L"Integer",
                                                L"Float",
                                                L"String",
                                                L"Name",
                                                L"Point2",
                                                L"Point3",
                                                L"Array",
                                                L"Function",
                                                L"Primitive",
                                                L"Cell",
                                                L"Node",
                                                L"Controller",
                                                L"ReferenceTarget",
                                                L"SubAnim",
                                                L"Interface",
                                                L"InterfaceFunction",
                                                L"Class",
                                                L"Quat",
                                                L"Matrix3"};
    static_assert(std::size(kNames) == size_t(Tag::Matrix3) + 1, "a name for every kind");
    return kNames[size_t(v.tag())];
}

}  // namespace host::script
