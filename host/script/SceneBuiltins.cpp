#include "host/script/SceneBuiltins.h"

#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/script/Callable.h"
#include "host/script/FPConvert.h"
#include "host/script/Interpreter.h"
#include "host/script/ObjectValue.h"
#include "host/script/ParamAccess.h"
#include "host/script/ScriptError.h"
#include "host/script/ScriptRegistry.h"
#include "host/script/TarnixNode.h"
#include "host/script/TarnixSubAnim.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

// A named group of functions, such as tarnixOps.
class StructValue : public ObjectValue {
public:
    StructValue(std::wstring name, std::vector<std::pair<std::wstring, Value>> members)
        : name_(std::move(name)), members_(std::move(members)) {}
    std::wstring Text() const override { return L"<struct " + name_ + L">"; }
    bool GetProperty(Interpreter&, const std::wstring& name, Value& out) override {
        for (const auto& [key, value] : members_)
            if (key == name) {
                out = value;
                return true;
            }
        return false;
    }

private:
    std::wstring name_;
    std::vector<std::pair<std::wstring, Value>> members_;
};

INode* LiveNode(const Value& v) {
    auto* node = dynamic_cast<INode*>(AnimatableOf(v));
    return node && GetCOREInterface()->GetINodeByHandle(node->GetHandle()) == node ? node : nullptr;
}

// The nodes of a node or an array of nodes; throws for anything else.
INodeTab NodesOf(const Value& v, const wchar_t* function) {
    INodeTab nodes;
    auto add = [&](const Value& item) {
        INode* node = LiveNode(item);
        if (!node)
            throw RuntimeError(WStr(std::wstring(L"Expected a Node in ") + function + L", got " +
                                    PrintText(item)));
        nodes.Append(1, &node);
    };
    if (v.tag() == Tag::Array)
        for (const Value& item : v.As<ArrayObject>().items) add(item);
    else
        add(v);
    return nodes;
}

Value GetSubAnim(CallArgs& args) {
    args.CheckCount(L"getSubAnim", 2);
    Animatable* anim = AnimatableOf(args[0]);
    if (!anim)
        throw RuntimeError(WStr(L"getSubAnim needs a scene object, got " + PrintText(args[0])));
    if (!args[1].IsInteger())
        throw RuntimeError(WStr(L"getSubAnim needs an index, got " + PrintText(args[1])));
    Value sub =
        TarnixSubAnim::intern(anim, int(std::clamp<int64_t>(args[1].AsInteger(), -1, 1 << 30)) - 1);
    if (sub.IsUndefined())
        throw RuntimeError(WStr(L"getSubAnim: index out of range: " + PrintText(args[1])));
    return sub;
}

Value IsValidNode(CallArgs& args) {
    args.CheckCount(L"isValidNode", 1);
    return Value::Bool(LiveNode(args[0]) != nullptr);
}

Value GetNodeByName(CallArgs& args) {
    args.CheckCount(L"getNodeByName", 1);
    if (args[0].tag() != Tag::String) throw RuntimeError(L"getNodeByName needs a string");
    return FindNodeValue(TextOf(args[0]));
}

Value GetNodeByHandle(CallArgs& args) {
    args.CheckCount(L"getNodeByHandle", 1);
    if (!args[0].IsInteger()) throw RuntimeError(L"getNodeByHandle needs an integer");
    return TarnixNode::intern(GetCOREInterface()->GetINodeByHandle(uint32_t(args[0].AsInteger())));
}

Value Select(CallArgs& args) {
    args.CheckCount(L"select", 1);
    INodeTab nodes = NodesOf(args[0], L"select");
    GetCOREInterface()->ClearNodeSelection(false);
    GetCOREInterface()->SelectNodeTab(nodes, true);
    return Value::Ok();
}

Value Deselect(CallArgs& args) {
    args.CheckCount(L"deselect", 1);
    INodeTab nodes = NodesOf(args[0], L"deselect");
    GetCOREInterface()->SelectNodeTab(nodes, false);
    return Value::Ok();
}

Value ClearSelection(CallArgs& args) {
    args.CheckCount(L"clearSelection", 0);
    GetCOREInterface()->ClearNodeSelection();
    return Value::Ok();
}

Value Delete(CallArgs& args) {
    args.CheckCount(L"delete", 1);
    INodeTab nodes = NodesOf(args[0], L"delete");
    return Value::Integer(GetCOREInterface()->DeleteNodes(nodes));
}

Value SuperClassOf(CallArgs& args) {
    args.CheckCount(L"superClassOf", 1);
    struct Super {
        SClass_ID id;
        const wchar_t* name;
    };
    static constexpr Super kSupers[] = {
        {BASENODE_CLASS_ID, L"Node"},
        {GEOMOBJECT_CLASS_ID, L"GeometryClass"},
        {SHAPE_CLASS_ID, L"Shape"},
        {HELPER_CLASS_ID, L"Helper"},
        {OSM_CLASS_ID, L"Modifier"},
        {REF_TARGET_CLASS_ID, L"ReferenceTarget"},
        {CTRL_FLOAT_CLASS_ID, L"FloatController"},
        {CTRL_MATRIX3_CLASS_ID, L"Matrix3Controller"},
        {CTRL_POSITION_CLASS_ID, L"PositionController"},
        {CTRL_ROTATION_CLASS_ID, L"RotationController"},
        {CTRL_SCALE_CLASS_ID, L"ScaleController"},
        {CTRL_POINT3_CLASS_ID, L"Point3Controller"},
    };
    Animatable* anim = AnimatableOf(args[0]);
    if (auto* node = dynamic_cast<INode*>(anim)) anim = BaseObjectOf(node);
    std::wstring name = L"Value";
    for (const Super& s : kSupers)
        if (anim && anim->SuperClassID() == s.id) name = s.name;
    return MakeName(name);
}

// Records the setting for the importer, which reads the list before it imports.
Value FbxImporterSetParam(CallArgs& args) {
    args.CheckCount(L"FBXImporterSetParam", 2);
    if (args[0].tag() != Tag::String)
        throw RuntimeError(L"FBXImporterSetParam needs a name string");
    FPValue value;
    if (!ToFPValue(args[1], value))
        throw RuntimeError(WStr(L"FBXImporterSetParam cannot take " + PrintText(args[1])));
    ScriptRegistry::Instance().ImporterParams().emplace_back(TextOf(args[0]), std::move(value));
    return Value::Ok();
}

// The host's undo from scripts, between undo contexts: inside one the hold is open and
// the steps are not yet entries.
Value HoldStep(CallArgs& args, const wchar_t* name, bool (Hold::*step)()) {
    args.CheckCount(name, 0);
    if (theHold.Holding())
        throw RuntimeError(WStr(std::wstring(name) + L" cannot run inside an undo context"));
    return Value::Bool((theHold.*step)());
}
Value HoldUndo(CallArgs& args) {
    return HoldStep(args, L"theHold.Undo", &Hold::Undo);
}
Value HoldRedo(CallArgs& args) {
    return HoldStep(args, L"theHold.Redo", &Hold::Redo);
}

constexpr BuiltinFunction kSceneBuiltins[] = {
    {L"getsubanim", GetSubAnim},
    {L"isvalidnode", IsValidNode},
    {L"getnodebyname", GetNodeByName},
    {L"select", Select},
    {L"deselect", Deselect},
    {L"clearselection", ClearSelection},
    {L"delete", Delete},
    {L"superclassof", SuperClassOf},
    {L"fbximportersetparam", FbxImporterSetParam},
};

int Frame(TimeValue t) {
    return t / GetCOREInterface()->GetTicksPerFrame();
}

}  // namespace

void DefineSceneBuiltins(Interpreter& in) {
    in.DefinePrimitives(kSceneBuiltins);
}

Value SceneVariable(const std::wstring& name) {
    Interface* ip = GetCOREInterface();
    if (name == L"selection") {
        std::vector<Value> nodes;
        for (int i = 0; i < ip->GetSelNodeCount(); ++i)
            nodes.push_back(TarnixNode::intern(ip->GetSelNode(i)));
        return MakeArray(std::move(nodes));
    }
    if (name == L"slidertime") return Value::Integer(Frame(ip->GetTime()));
    if (name == L"framerate") return Value::Integer(ip->GetFrameRate());
    if (name == L"animationrange")
        return MakePoint2(float(Frame(ip->GetAnimRange().Start())),
                          float(Frame(ip->GetAnimRange().End())));
    if (name == L"thehold")
        return MakeHeap<StructValue>(
            Tag::Class, L"theHold",
            std::vector<std::pair<std::wstring, Value>>{
                {L"undo", MakeHeap<PrimitiveObject>(Tag::Primitive, L"Undo", HoldUndo)},
                {L"redo", MakeHeap<PrimitiveObject>(Tag::Primitive, L"Redo", HoldRedo)}});
    if (name == L"tarnixops")
        return MakeHeap<StructValue>(
            Tag::Class, L"tarnixOps",
            std::vector<std::pair<std::wstring, Value>>{
                {L"getnodebyhandle",
                 MakeHeap<PrimitiveObject>(Tag::Primitive, L"getNodeByHandle", GetNodeByHandle)}});
    return Value();
}

}  // namespace host::script
