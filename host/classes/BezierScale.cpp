#include "host/classes/BezierScale.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierScaleDesc() {
    static HostClassDesc<BezierScale> desc(L"Bezier Scale", L"bezier_scale", CTRL_SCALE_CLASS_ID,
                                           BEZIER_SCALE_CLASS_ID, false);
    return &desc;
}

}  // namespace host
