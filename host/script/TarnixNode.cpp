#include "host/script/TarnixNode.h"

#include "host/math/AffineParts.h"
#include "host/object/IDerivedObject.h"
#include "host/object/Interface.h"
#include "host/object/Modifier.h"
#include "host/object/Object.h"
#include "host/script/Interpreter.h"
#include "host/script/MatrixValue.h"
#include "host/script/ParamAccess.h"
#include "host/script/QuatValue.h"
#include "host/script/ScriptError.h"
#include "host/script/TarnixControl.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

[[noreturn]] void WrongValue(const wchar_t* property, const Value& v) {
    throw RuntimeError(WStr(std::wstring(L"Cannot set .") + property + L" to " + PrintText(v)));
}

Point3 PointArg(const wchar_t* property, const Value& v) {
    if (v.tag() != Tag::Point3) WrongValue(property, v);
    return v.As<PointObject>().point;
}

INode* NodeArg(const wchar_t* property, const Value& v) {
    auto* node = dynamic_cast<INode*>(AnimatableOf(v));
    if (!node) WrongValue(property, v);
    return node;
}

Value Children(INode& node) {
    std::vector<Value> children;
    for (int i = 0; i < node.NumberOfChildren(); ++i)
        children.push_back(TarnixNode::intern(node.GetChildNode(i)));
    return MakeArray(std::move(children));
}

Value Modifiers(INode& node) {
    std::vector<Value> modifiers;
    for (auto* derived = dynamic_cast<IDerivedObject*>(node.GetObjectRef()); derived;
         derived = dynamic_cast<IDerivedObject*>(derived->GetObjRef()))
        for (int i = 0; i < derived->NumModifiers(); ++i)
            modifiers.push_back(WrapAnimatable(derived->GetModifier(i)));
    return MakeArray(std::move(modifiers));
}

Value WireColor(INode& node) {
    const COLORREF c = node.GetWireColor();
    return MakePoint3(Point3(float(c & 0xFF), float((c >> 8) & 0xFF), float((c >> 16) & 0xFF)));
}

uint32_t Channel(float f) {
    return uint32_t(std::clamp(f, 0.0f, 255.0f) + 0.5f);
}

AffineParts Parts(INode& node, TimeValue t) {
    AffineParts parts;
    decomp_affine(node.GetNodeTM(t), &parts);
    return parts;
}

// The node's own properties: one entry a name, the setter null for a read-only one.
struct NodeProperty {
    const wchar_t* name;
    Value (*get)(INode&, TimeValue);
    void (*set)(INode&, TimeValue, const Value&);
};
const NodeProperty kNodeProperties[] = {
    {L"name", [](INode& n, TimeValue) { return MakeString(n.GetName()); },
     [](INode& n, TimeValue, const Value& v) {
         if (v.tag() != Tag::String) WrongValue(L"name", v);
         n.SetName(TextOf(v).c_str());
     }},
    {L"handle", [](INode& n, TimeValue) { return Value::Integer(n.GetHandle()); }, nullptr},
    {L"parent",
     [](INode& n, TimeValue) {
         INode* parent = n.GetParentNode();
         return parent && !parent->IsRootNode() ? TarnixNode::intern(parent) : Value();
     },
     [](INode& n, TimeValue t, const Value& v) {
         if (v.IsUndefined()) return n.Detach(t);
         if (!NodeArg(L"parent", v)->AttachChild(&n)) WrongValue(L"parent", v);
     }},
    {L"children", [](INode& n, TimeValue) { return Children(n); }, nullptr},
    {L"transform", [](INode& n, TimeValue t) { return MatrixValue::Make(n.GetNodeTM(t)); },
     [](INode& n, TimeValue t, const Value& v) {
         if (v.tag() != Tag::Matrix3) WrongValue(L"transform", v);
         n.SetNodeTM(t, v.As<MatrixValue>().matrix);
     }},
    {L"position", [](INode& n, TimeValue t) { return MakePoint3(n.GetNodeTM(t).GetTrans()); },
     [](INode& n, TimeValue t, const Value& v) {
         Matrix3 tm = n.GetNodeTM(t);
         tm.SetTrans(PointArg(L"position", v));
         n.SetNodeTM(t, tm);
     }},
    {L"rotation", [](INode& n, TimeValue t) { return QuatValue::Make(Parts(n, t).q); }, nullptr},
    {L"scale", [](INode& n, TimeValue t) { return MakePoint3(Parts(n, t).k); }, nullptr},
    {L"controller", [](INode& n, TimeValue) { return TarnixControl::intern(n.GetTMController()); },
     [](INode& n, TimeValue, const Value& v) {
         auto* control = dynamic_cast<Control*>(AnimatableOf(v));
         if (!control || !n.SetTMController(control)) WrongValue(L"controller", v);
     }},
    {L"baseobject", [](INode& n, TimeValue) { return WrapAnimatable(BaseObjectOf(&n)); }, nullptr},
    {L"modifiers", [](INode& n, TimeValue) { return Modifiers(n); }, nullptr},
    {L"wirecolor", [](INode& n, TimeValue) { return WireColor(n); },
     [](INode& n, TimeValue, const Value& v) {
         const Point3 c = PointArg(L"wirecolor", v);
         n.SetWireColor(RGB(Channel(c.x), Channel(c.y), Channel(c.z)));
     }},
};

const NodeProperty* FindNodeProperty(const std::wstring& name) {
    for (const NodeProperty& p : kNodeProperties)
        if (name == p.name) return &p;
    return nullptr;
}

}  // namespace

Value TarnixNode::intern(INode* node) {
    if (!node) return Value();
    return MakeHeap<TarnixNode>(Tag::Node, node);
}

Value FindNodeValue(const std::wstring& name) {
    return TarnixNode::intern(GetCOREInterface()->GetINodeByName(name.c_str()));
}

Object* BaseObjectOf(INode* node) {
    Object* object = node->GetObjectRef();
    while (auto* derived = dynamic_cast<IDerivedObject*>(object)) object = derived->GetObjRef();
    return object;
}

std::wstring TarnixNode::Text() const {
    auto* node = static_cast<INode*>(const_cast<TarnixNode*>(this)->Target());
    return node ? L"$" + std::wstring(node->GetName()) : L"<Deleted scene node>";
}

bool TarnixNode::GetProperty(Interpreter& in, const std::wstring& name, Value& out) {
    INode* node = Node();
    if (const NodeProperty* p = FindNodeProperty(name)) {
        out = p->get(*node, in.CurrentTime());
        return true;
    }
    if (TarnixRefTarg::GetProperty(in, name, out)) return true;
    Value base = WrapAnimatable(BaseObjectOf(node));
    return !base.IsUndefined() && base.As<TarnixRefTarg>().GetProperty(in, name, out);
}

bool TarnixNode::SetProperty(Interpreter& in, const std::wstring& name, const Value& v) {
    INode* node = Node();
    if (const NodeProperty* p = FindNodeProperty(name)) {
        if (!p->set) throw RuntimeError(WStr(L"Cannot set ." + name + L": it is read-only"));
        p->set(*node, in.CurrentTime(), v);
        return true;
    }
    if (TarnixRefTarg::SetProperty(in, name, v)) return true;
    Value base = WrapAnimatable(BaseObjectOf(node));
    return !base.IsUndefined() && base.As<TarnixRefTarg>().SetProperty(in, name, v);
}

}  // namespace host::script
