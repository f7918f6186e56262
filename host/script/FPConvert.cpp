#include "host/script/FPConvert.h"

#include "host/script/ValueObjects.h"

namespace host::script {

bool ToFPValue(const Value& v, FPValue& out) {
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
            out.Load(TYPE_STRING, WStr(TextOf(v)));
            return true;
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
        default:
            return false;
    }
}

Value FromFPValue(const FPValue& v) {
    switch (KindOf(v.type)) {
        case ValueKind::Float:
            if (auto* f = v.Get<float>()) return Value::Float(*f);
            break;
        case ValueKind::Int:
            if (auto* i = v.Get<int>())
                return BaseType(v.type) == TYPE_BOOL ? Value::Bool(*i != 0) : Value::Integer(*i);
            break;
        case ValueKind::String:
            if (auto* s = v.Get<WStr>()) return MakeString(s->str());
            break;
        case ValueKind::Point3:
            if (auto* p = v.Get<Point3>()) return MakePoint3(*p);
            break;
        case ValueKind::Point2:
            if (auto* p = v.Get<Point2>()) return MakePoint2(p->x, p->y);
            break;
        default:
            break;
    }
    return Value();
}

}  // namespace host::script
