#include "host/classes/HostClasses.h"

#include "host/classes/LayerManager.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Interface.h"
#include "host/object/Notifications.h"
#include "host/object/PluginLoader.h"
#include "host/object/TrackBarFilterManager.h"

namespace host {

const std::vector<ClassDesc2*>& HostClassDescriptors() {
    static const std::vector<ClassDesc2*> descriptors = {
        GetBezierFloatDesc(),   GetBezierPositionDesc(),
        GetBezierScaleDesc(),   GetPositionXYZDesc(),
        GetEulerXYZDesc(),      GetScaleXYZDesc(),
        GetPRSDesc(),           GetTcbFloatDesc(),
        GetTcbPositionDesc(),   GetTcbRotationDesc(),
        GetTcbScaleDesc(),      GetPointHelperDesc(),
        GetBoneObjectDesc(),    GetCurveControlDesc(),
        GetTextShapeDesc(),     GetFloatListDesc(),
        GetPositionListDesc(),  GetRotationListDesc(),
        GetScaleListDesc(),     GetOrientationConstraintDesc(),
        GetLinkControlDesc(),   GetPolyObjectDesc(),
        GetEditableMeshDesc(),  GetMorphModifierDesc(),
        GetParamBlock2Desc(),   GetDerivedObjectDesc(),
        GetTrackViewNodeDesc(), GetCustAttribContainerDesc()};
    return descriptors;
}

void RegisterHostClasses() {
    // Registering a taken pair is refused, so a second call changes nothing.
    for (ClassDesc2* desc : HostClassDescriptors()) ClassRegistry::Instance().Register(desc);
    static LayerManager layers;
    GetCOREInterface()->SetLayerManager(&layers);
}

void StartHost() {
    std::vector<std::string> errors;
    StartHostWithPlugins({}, errors);
}

void StartHostWithPlugins(const std::vector<std::string>& folders,
                          std::vector<std::string>& errors) {
    static bool started = false;
    if (started) return;
    started = true;
    RegisterHostClasses();
    TrackBarFilterManager::Instance();
    for (const std::string& folder : folders) LoadPluginFolder(folder, errors);
    BroadcastNotification(NOTIFY_SYSTEM_STARTUP);
}

}  // namespace host
