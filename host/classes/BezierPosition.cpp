#include "host/classes/BezierPosition.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierPositionDesc() {
    static HostClassDesc<BezierPosition> desc(L"Bezier Position", L"bezier_position",
                                              CTRL_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID,
                                              false);
    return &desc;
}

}  // namespace host
