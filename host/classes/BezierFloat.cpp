#include "host/classes/BezierFloat.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierFloatDesc() {
    static HostClassDesc<BezierFloat> desc(L"Bezier Float", L"bezier_float", CTRL_FLOAT_CLASS_ID,
                                           BEZIER_FLOAT_CLASS_ID, false);
    return &desc;
}

}  // namespace host
