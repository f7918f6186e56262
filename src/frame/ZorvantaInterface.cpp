#include "frame/ZorvantaInterface.h"

#include "frame/FrameIds.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace zorvanta {

using namespace host;

namespace {

template <typename T>
T* Found(T* (*finder)()) {
    return finder ? finder() : nullptr;
}

FPStatus Answer(FPValue& result, ParamType2 type, Animatable* value) {
    result.Load(type, value);
    return FPS_OK;
}

}  // namespace

// Never destroyed: the host's list of core interfaces may go first at process end, and
// the library stays loaded while the host runs.
ZorvantaInterface& ZorvantaInterface::Get() {
    static ZorvantaInterface* const instance = new ZorvantaInterface;
    return *instance;
}

// Registered while the library loads, as the host's static interfaces are.
[[maybe_unused]] static ZorvantaInterface& registered = ZorvantaInterface::Get();

ZorvantaInterface::ZorvantaInterface() {
    RegisterCoreInterface(this);
}

const FPInterfaceDesc* ZorvantaInterface::GetDesc() {
    static const FPInterfaceDesc desc(
        ZORVANTA_INTERFACE_ID, L"Zorvanta", FP_CORE,
        {
            {kGetUIPanelHolder, L"GetUIPanelHolder", TYPE_REFTARG, {}},
            {kGetPoseKitHolder, L"GetPoseKitHolder", TYPE_REFTARG, {}},
            {kAbout, L"About", TYPE_VOID, {}},
        },
        {
            {L"activeUIPanel", kGetActiveUIPanel, FP_NO_FUNCTION, TYPE_INODE},
            {L"activePoseKit", kGetActivePoseKit, FP_NO_FUNCTION, TYPE_INODE},
            {L"uiPanelTransforming", kGetUIPanelTransforming, FP_NO_FUNCTION, TYPE_BOOL},
            {L"currentUIAction", kGetCurrentUIAction, FP_NO_FUNCTION, TYPE_REFTARG},
        });
    return &desc;
}

FPStatus ZorvantaInterface::_dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams*) {
    switch (fid) {
        case kGetActiveUIPanel:
            return Answer(result, TYPE_INODE, Found(finders.activeUIPanel));
        case kGetActivePoseKit:
            return Answer(result, TYPE_INODE, Found(finders.activePoseKit));
        case kGetCurrentUIAction:
            return Answer(result, TYPE_REFTARG, currentUIAction);
        case kGetUIPanelHolder:
            return Answer(result, TYPE_REFTARG, Found(finders.uiPanelHolder));
        case kGetPoseKitHolder:
            return Answer(result, TYPE_REFTARG, Found(finders.poseKitHolder));
        case kGetUIPanelTransforming:
            result.Load(TYPE_BOOL, uiPanelTransforming ? 1 : 0);
            return FPS_OK;
        case kAbout:
            About();
            result.Init();
            return FPS_OK;
    }
    return FPS_NO_SUCH_FUNCTION;
}

void ZorvantaInterface::About() {
    GetCOREInterface()->GetDialogService().MessageBox(
        WStr(L"Zorvanta\nCharacter rigging and animation toolkit"), WStr(L"About Zorvanta"));
}

}  // namespace zorvanta
