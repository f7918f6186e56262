#include "host/script/ClassValue.h"
#include "host/script/SceneGlobals.h"
#include "host/script/TarnixNode.h"
#include "host/script/ValueText.h"

namespace host::script {

Value FindSceneGlobal(const std::wstring&) {
    return Value();
}
Value FindNodeValue(const std::wstring&) {
    return Value();
}
Value ClassValue::Of(const Value& v) {
    return MakeHeap<ClassValue>(Tag::Class, KindName(v), nullptr);
}
bool ClassValue::Equals(const ObjectValue& other) const {
    auto* c = dynamic_cast<const ClassValue*>(&other);
    return c && c->name_ == name_;
}
Value ClassValue::Call(CallArgs&) {
    return Value();
}

}  // namespace host::script
