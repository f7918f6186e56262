#include "host/script/ParamAccess.h"

#include "host/object/FPInterfaceDesc.h"
#include "host/object/IParamBlock2.h"
#include "host/object/PBAccessor.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/script/MatrixValue.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

struct ParamRef {
    IParamBlock2* block = nullptr;
    const ParamDef* def = nullptr;
};

ParamRef FindInBlock(IParamBlock2* block, const std::wstring& name) {
    if (!block || !block->GetDesc()) return {};
    ParamBlockDesc2* desc = block->GetDesc();
    for (int i = 0; i < desc->Count(); ++i) {
        const ParamDef& def = desc->Param(i);
        if (def.name && SameName(WStr(name), def.name)) return {block, &def};
    }
    return {};
}

// In the owner's blocks, or in the owner itself when it is a block.
ParamRef FindParam(Animatable* owner, const std::wstring& name) {
    if (auto* block = dynamic_cast<IParamBlock2*>(owner)) return FindInBlock(block, name);
    for (int b = 0; owner && b < owner->NumParamBlocks(); ++b)
        if (ParamRef p = FindInBlock(owner->GetParamBlock(b), name); p.block) return p;
    return {};
}

Value ElementValue(IParamBlock2& block, const ParamDef& def, TimeValue t, int tab) {
    PB2Value v;
    Interval valid = FOREVER;
    block.GetValue(def.id, t, v, valid, tab);
    switch (KindOf(def.type)) {
        case ValueKind::Float:
            return Value::Float(v.f);
        case ValueKind::Int:
            return BaseType(def.type) == TYPE_BOOL ? Value::Bool(v.i != 0) : Value::Integer(v.i);
        case ValueKind::Point3:
            return MakePoint3(v.p);
        case ValueKind::Point2:
            return MakePoint2(v.p2.x, v.p2.y);
        case ValueKind::Matrix:
            return MatrixValue::Make(v.m);
        case ValueKind::String:
            return MakeString(v.s.str());
        case ValueKind::Reference:
            return WrapAnimatable(v.r);
        case ValueKind::Other:
            break;
    }
    return Value();
}

[[noreturn]] void WrongType(const ParamDef& def, const Value& v) {
    throw RuntimeError(WStr(L"Cannot set " + std::wstring(def.name) + L" to " + PrintText(v)));
}

void SetElement(IParamBlock2& block, const ParamDef& def, TimeValue t, int tab, const Value& v) {
    switch (KindOf(def.type)) {
        case ValueKind::Float:
            if (!v.IsNumber()) WrongType(def, v);
            block.SetValue(def.id, t, float(v.AsNumber()), tab);
            return;
        case ValueKind::Int:
            if (v.IsBool()) return void(block.SetValue(def.id, t, int(v.AsBool()), tab));
            if (!v.IsInteger()) WrongType(def, v);
            block.SetValue(def.id, t, int(v.AsInteger()), tab);
            return;
        case ValueKind::Point3:
            if (v.tag() != Tag::Point3) WrongType(def, v);
            block.SetValue(def.id, t, v.As<PointObject>().point, tab);
            return;
        case ValueKind::String:
            if (v.tag() != Tag::String) WrongType(def, v);
            block.SetValue(def.id, t, TextOf(v).c_str(), tab);
            return;
        case ValueKind::Reference: {
            Animatable* anim = AnimatableOf(v);
            auto* target = dynamic_cast<ReferenceTarget*>(anim);
            if (!v.IsUndefined() && !target) WrongType(def, v);
            block.SetValue(def.id, t, target, tab);
            return;
        }
        default:
            WrongType(def, v);
    }
}

}  // namespace

bool GetParam(Animatable* owner, const std::wstring& name, TimeValue t, Value& out) {
    const ParamRef p = FindParam(owner, name);
    if (!p.block) return false;
    if (!IsTable(p.def->type)) {
        out = ElementValue(*p.block, *p.def, t, 0);
        return true;
    }
    std::vector<Value> items;
    const int count = p.block->Count(p.def->id);
    for (int i = 0; i < count; ++i) items.push_back(ElementValue(*p.block, *p.def, t, i));
    out = MakeArray(std::move(items));
    return true;
}

bool SetParam(Animatable* owner, const std::wstring& name, TimeValue t, const Value& v) {
    const ParamRef p = FindParam(owner, name);
    if (!p.block) return false;
    if (!IsTable(p.def->type)) {
        SetElement(*p.block, *p.def, t, 0, v);
        return true;
    }
    if (v.tag() != Tag::Array) WrongType(*p.def, v);
    const auto& items = v.As<ArrayObject>().items;
    p.block->SetCount(p.def->id, int(items.size()));
    for (size_t i = 0; i < items.size(); ++i) SetElement(*p.block, *p.def, t, int(i), items[i]);
    return true;
}

}  // namespace host::script
