#include "host/script/FPConvert.h"

#include <algorithm>

#include "host/object/Control.h"
#include "host/object/INode.h"
#include "host/script/MatrixValue.h"
#include "host/script/ParamAccess.h"
#include "host/script/QuatValue.h"
#include "host/script/ValueObjects.h"

namespace host::script {

namespace {

// A scene value as the reference kind wanted, when it is of that kind.
bool ReferenceFor(const Value& v, ParamType2 base, FPValue& out) {
    Animatable* anim = AnimatableOf(v);
    if (!anim && !v.IsUndefined()) return false;
    if (base == TYPE_INODE && anim && !dynamic_cast<INode*>(anim)) return false;
    if (base == TYPE_CONTROL && anim && !dynamic_cast<Control*>(anim)) return false;
    out.Load(base, anim);
    return true;
}

ParamType2 NaturalReferenceType(const Value& v) {
    return v.tag() == Tag::Node      ? TYPE_INODE
           : v.tag() == Tag::Control ? TYPE_CONTROL
                                     : TYPE_REFTARG;
}

template <typename T>
bool TableFor(const std::vector<Value>& items, ParamType2 wanted, FPValue& out) {
    std::vector<T> table;
    for (const Value& item : items) {
        FPValue element;
        if (!ToFPValue(item, element, BaseType(wanted))) return false;
        if constexpr (std::is_same_v<T, Animatable*>) {
            table.push_back(*element.Get<Animatable*>());
        } else if (auto* i = element.Get<int>()) {
            table.push_back(T(*i));
        } else if (auto* f = element.Get<float>()) {
            table.push_back(T(*f));
        } else {
            return false;
        }
    }
    out.Load(wanted, std::move(table));
    return true;
}

bool Table(const Value& v, ParamType2 wanted, FPValue& out) {
    if (v.tag() != Tag::Array) return false;
    const auto& items = v.As<ArrayObject>().items;
    switch (KindOf(BaseType(wanted))) {
        case ValueKind::Int:
            return TableFor<int>(items, wanted, out);
        case ValueKind::Float:
            return TableFor<float>(items, wanted, out);
        case ValueKind::Reference:
            return TableFor<Animatable*>(items, wanted, out);
        default:
            return false;
    }
}

bool Natural(const Value& v, FPValue& out) {
    switch (v.tag()) {
        case Tag::Undefined:
        case Tag::Ok:
            out.Init();
            return true;
        case Tag::Bool:
            out.Load(TYPE_BOOL, int(v.AsBool()));
            return true;
        case Tag::Integer:
            out.Load(TYPE_INT, int(v.AsInteger()));
            return true;
        case Tag::Float:
            out.Load(TYPE_FLOAT, float(v.AsFloat()));
            return true;
        case Tag::String:
        case Tag::Name:
            out.Load(TYPE_STRING, WStr(TextOf(v)));
            return true;
        case Tag::Point3:
            out.Load(TYPE_POINT3, v.As<PointObject>().point);
            return true;
        case Tag::Point2: {
            const Point3& p = v.As<PointObject>().point;
            out.Load(TYPE_POINT2, Point2(p.x, p.y));
            return true;
        }
        case Tag::Quat:
            out.Load(TYPE_QUAT, v.As<QuatValue>().quat);
            return true;
        case Tag::Matrix3:
            out.Load(TYPE_MATRIX3, v.As<MatrixValue>().matrix);
            return true;
        case Tag::Node:
        case Tag::Control:
        case Tag::RefTarg:
            return ReferenceFor(v, NaturalReferenceType(v), out);
        default:
            return false;
    }
}

// A bit array as scripts write it: an array of the 1-based numbers of the set bits. The
// array is as long as the highest number; a number below 1 or a non-integer is refused.
bool BitsFor(const Value& v, FPValue& out) {
    if (v.tag() != Tag::Array) return false;
    const auto& items = v.As<ArrayObject>().items;
    int64_t size = 0;
    for (const Value& item : items) {
        if (!item.IsInteger() || item.AsInteger() < 1 || item.AsInteger() > (1 << 24)) return false;
        size = std::max(size, item.AsInteger());
    }
    BitArray bits{static_cast<int>(size)};
    for (const Value& item : items) bits.Set(int(item.AsInteger() - 1));
    out.Load(TYPE_BITARRAY, std::move(bits));
    return true;
}

Value NumbersOf(const BitArray& bits) {
    std::vector<Value> items;
    for (int i = 0; i < bits.GetSize(); ++i)
        if (bits[i]) items.push_back(Value::Integer(i + 1));
    return MakeArray(std::move(items));
}

template <typename T>
Value ArrayOf(const std::vector<T>& table, ParamType2 type) {
    std::vector<Value> items;
    for (const T& element : table) items.push_back(FromFPValue(FPValue(BaseType(type), element)));
    return MakeArray(std::move(items));
}

}  // namespace

bool ToFPValue(const Value& v, FPValue& out, ParamType2 wanted) {
    const ParamType2 base = BaseType(wanted);
    if (IsTable(wanted)) return Table(v, wanted, out);
    if (KindOf(base) == ValueKind::Reference) return ReferenceFor(v, base, out);
    if (base == TYPE_INDEX && v.IsInteger()) {
        out.Load(TYPE_INDEX, int(v.AsInteger() - 1));
        return true;
    }
    if (base == TYPE_BITARRAY) return BitsFor(v, out);
    if (base == TYPE_BOOL && v.IsBool()) {
        out.Load(TYPE_BOOL, int(v.AsBool()));
        return true;
    }
    return Natural(v, out);
}

Value FromFPValue(const FPValue& v) {
    if (auto* inner = v.Get<std::shared_ptr<FPValue>>())
        return *inner ? FromFPValue(**inner) : Value();
    if (auto* t = v.Get<std::vector<int>>()) return ArrayOf(*t, v.type);
    if (auto* t = v.Get<std::vector<float>>()) return ArrayOf(*t, v.type);
    if (auto* t = v.Get<std::vector<Animatable*>>()) return ArrayOf(*t, v.type);
    if (auto* a = v.Get<Animatable*>()) return WrapAnimatable(*a);
    if (auto* bits = v.Get<BitArray>()) return NumbersOf(*bits);
    if (auto* q = v.Get<Quat>()) return QuatValue::Make(*q);
    if (auto* m = v.Get<Matrix3>()) return MatrixValue::Make(*m);
    if (auto* f = v.Get<float>()) return Value::Float(*f);
    if (auto* s = v.Get<WStr>()) return MakeString(s->str());
    if (auto* p = v.Get<Point3>()) return MakePoint3(*p);
    if (auto* p = v.Get<Point2>()) return MakePoint2(p->x, p->y);
    if (auto* i = v.Get<int>()) {
        if (BaseType(v.type) == TYPE_BOOL) return Value::Bool(*i != 0);
        if (BaseType(v.type) == TYPE_INDEX) return Value::Integer(int64_t(*i) + 1);
        return Value::Integer(*i);
    }
    return Value();
}

}  // namespace host::script
