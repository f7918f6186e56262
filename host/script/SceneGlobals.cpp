#include "host/script/SceneGlobals.h"

#include "host/object/FPInterface.h"
#include "host/script/ClassValue.h"
#include "host/script/InterfaceValue.h"
#include "host/script/SceneBuiltins.h"
#include "host/script/ScriptRegistry.h"

namespace host::script {

Value FindSceneGlobal(const std::wstring& name) {
    if (Value fn = ScriptRegistry::Instance().FindFunction(name); !fn.IsUndefined()) return fn;
    if (Value v = SceneVariable(name); !v.IsUndefined()) return v;
    if (FPInterface* fpi = GetCOREInterface(WStr(name))) return InterfaceValue::Static(fpi);
    return ClassValue::Named(name);
}

}  // namespace host::script
