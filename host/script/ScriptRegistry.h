#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/object/FPInterfaceDesc.h"
#include "host/script/Callable.h"

namespace host::script {

// What C++ code publishes to scripts beyond the built-ins: global functions (the
// toolkit's CreateIKFKSolver and the like) and the mix-in interfaces whose functions
// and properties scripts reach through objects. Registration is global: every
// interpreter sees it, also one made before.
class ScriptRegistry {
public:
    static ScriptRegistry& Instance();

    // A global function by name (case-insensitive); a later registration replaces one
    // of the same name.
    void RegisterFunction(const std::wstring& name, PrimitiveFn fn);
    void UnregisterFunction(const std::wstring& name);
    // The function as a value, or undefined.
    Value FindFunction(const std::wstring& name) const;

    // A mix-in interface: objects answer it through GetInterface(desc->GetID()).
    void RegisterMixin(const FPInterfaceDesc* desc);
    const std::vector<const FPInterfaceDesc*>& Mixins() const { return mixins_; }

    // FBXImporterSetParam calls, in order, for the importer to read (and clear).
    std::vector<std::pair<std::wstring, FPValue>>& ImporterParams() { return importerParams_; }

private:
    std::vector<std::pair<std::wstring, Value>> functions_;
    std::vector<const FPInterfaceDesc*> mixins_;
    std::vector<std::pair<std::wstring, FPValue>> importerParams_;
};

}  // namespace host::script
