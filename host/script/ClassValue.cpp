#include "host/script/ClassValue.h"

#include "host/object/ClassRegistry.h"
#include "host/object/Control.h"
#include "host/object/FPInterfaceDesc.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/script/Callable.h"
#include "host/script/ParamAccess.h"
#include "host/script/ScriptError.h"
#include "host/script/TarnixNode.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

ClassDesc2* DescOf(Animatable* anim) {
    return ClassRegistry::Instance().Find(anim->SuperClassID(), anim->ClassID());
}

}  // namespace

Value ClassValue::Of(const Value& v) {
    Animatable* anim = AnimatableOf(v);
    if (auto* node = dynamic_cast<INode*>(anim)) anim = BaseObjectOf(node);
    if (!anim) return MakeHeap<ClassValue>(Tag::Class, KindName(v), nullptr);
    ClassDesc2* desc = DescOf(anim);
    return MakeHeap<ClassValue>(
        Tag::Class, desc ? std::wstring(desc->InternalName()) : anim->GetClassName().str(), desc);
}

Value ClassValue::Named(const std::wstring& name) {
    for (ClassDesc2* desc : ClassRegistry::Instance().Descriptors())
        if (SameName(WStr(name), desc->InternalName()))
            return MakeHeap<ClassValue>(Tag::Class, std::wstring(desc->InternalName()), desc);
    return Value();
}

bool ClassValue::Equals(const ObjectValue& other) const {
    auto* c = dynamic_cast<const ClassValue*>(&other);
    return c && (desc_ ? c->desc_ == desc_ : c->name_ == name_);
}

// An object class makes a node holding a new object (named by name: when given); a
// controller class makes a controller; any other class makes the bare instance.
Value ClassValue::Call(CallArgs& args) {
    if (args.Count() != 0) throw ArgCountError(WStr(name_), 0, args.Count());
    Animatable* instance = desc_->Create(false);
    if (!instance) throw RuntimeError(WStr(L"Cannot create " + name_));
    if (auto* object = dynamic_cast<Object*>(instance)) {
        const Value* name = args.Keyword(L"name");
        const std::wstring text = name && name->tag() == Tag::String ? TextOf(*name) : L"";
        INode* node =
            GetCOREInterface()->CreateObjectNode(object, text.empty() ? nullptr : text.c_str());
        return TarnixNode::intern(node);
    }
    return WrapAnimatable(instance);
}

}  // namespace host::script
