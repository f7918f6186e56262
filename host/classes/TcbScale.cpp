#include "host/classes/TcbScale.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetTcbScaleDesc() {
    static HostClassDesc<TcbScale> desc(L"TCB Scale", L"tcb_scale", CTRL_SCALE_CLASS_ID,
                                        TCB_SCALE_CLASS_ID, false);
    return &desc;
}

}  // namespace host
