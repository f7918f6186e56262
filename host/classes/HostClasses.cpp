#include "host/classes/HostClasses.h"

#include "host/object/ClassRegistry.h"

namespace host {

void RegisterHostClasses() {
    // One table of the host's descriptors; registering a taken pair is refused, so a
    // second call changes nothing.
    ClassDesc2* const descriptors[] = {
        GetBezierFloatDesc(), GetBezierPositionDesc(), GetBezierScaleDesc(), GetPositionXYZDesc(),
        GetEulerXYZDesc(),    GetScaleXYZDesc(),       GetPRSDesc(),         GetTcbFloatDesc(),
        GetTcbPositionDesc(), GetTcbRotationDesc(),    GetTcbScaleDesc()};
    for (ClassDesc2* desc : descriptors) ClassRegistry::Instance().Register(desc);
}

}  // namespace host
