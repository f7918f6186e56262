#pragma once

#include <utility>
#include <vector>

#include "host/core/TimeValue.h"
#include "host/object/FPInterfaceDesc.h"

namespace host {

// The arguments of one call, bound to the function's argument list: positional ones
// in order, keyword ones by name or from their defaults.
struct FPParams {
    std::vector<FPValue> params;
};

enum FPStatus : int { FPS_FAIL = 0, FPS_OK = 1, FPS_NO_SUCH_FUNCTION = -1 };

// A published interface. A mix-in interface is implemented by the objects of a class
// and found with Animatable::GetInterface(Interface_ID); a core interface is one static
// object of the scene model, found with GetCOREInterface by id or by name.
class FPInterface {
public:
    virtual ~FPInterface() = default;
    virtual const FPInterfaceDesc* GetDesc() = 0;
    // Runs function fid with bound params, writing its result.
    virtual FPStatus _dispatch_fn(FunctionID fid, TimeValue t, FPValue& result, FPParams* p) = 0;
};

class FPMixinInterface : public FPInterface {};
class FPStaticInterface : public FPInterface {};

// A call by name, as scripts make it: binds positional and keyword arguments to the
// function's list, checks the count and the types (an int is taken for a float), and
// dispatches. On failure, error says why in the words scripts show.
struct FPCall {
    const wchar_t* function;
    std::vector<FPValue> positional;
    std::vector<std::pair<const wchar_t*, FPValue>> keywords;
};
FPStatus Invoke(FPInterface* fpi, const FPCall& call, TimeValue t, FPValue& result, WStr& error);
// Properties through their getter and setter functions.
FPStatus GetProperty(FPInterface* fpi, const wchar_t* name, TimeValue t, FPValue& result,
                     WStr& error);
FPStatus SetProperty(FPInterface* fpi, const wchar_t* name, TimeValue t, const FPValue& value,
                     WStr& error);

// The core (static) interfaces of the scene model and of loaded libraries.
void RegisterCoreInterface(FPStaticInterface* fpi);
void UnregisterCoreInterface(FPStaticInterface* fpi);
FPInterface* GetCOREInterface(Interface_ID id);
FPInterface* GetCOREInterface(const WStr& name);

}  // namespace host
