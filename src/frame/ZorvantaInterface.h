#pragma once

#include "host/object/FPInterface.h"

namespace host {
class INode;
class ReferenceTarget;
}  // namespace host

namespace zorvanta {

// The script global Zorvanta: the panel, pose kit and panel action of the moment, and
// the scene's panel and pose kit holders. The subsystems that own those keep them here:
// a panel view sets uiPanelTransforming while a drag moves nodes, an action sets
// currentUIAction while it runs, and the panel and pose kit subsystems install the
// finders of their holders and active objects. What nobody provides reads as nothing.
class ZorvantaInterface : public host::FPStaticInterface {
public:
    enum FunctionId : host::FunctionID {
        kGetActiveUIPanel,
        kGetActivePoseKit,
        kGetUIPanelTransforming,
        kGetCurrentUIAction,
        kGetUIPanelHolder,
        kGetPoseKitHolder,
        kAbout,
    };

    // What the subsystems provide; null until they do.
    struct Finders {
        host::INode* (*activeUIPanel)() = nullptr;
        host::INode* (*activePoseKit)() = nullptr;
        host::ReferenceTarget* (*uiPanelHolder)() = nullptr;
        host::ReferenceTarget* (*poseKitHolder)() = nullptr;
    };

    // The one instance, in the host's core interfaces from the library's load on.
    static ZorvantaInterface& Get();

    const host::FPInterfaceDesc* GetDesc() override;
    host::FPStatus _dispatch_fn(host::FunctionID fid, host::TimeValue t, host::FPValue& result,
                                host::FPParams* p) override;

    Finders finders;
    bool uiPanelTransforming = false;
    host::ReferenceTarget* currentUIAction = nullptr;

private:
    ZorvantaInterface();
    // Opens the about box through the host's dialogs.
    static void About();
};

}  // namespace zorvanta
