#include "host/classes/TcbPosition.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetTcbPositionDesc() {
    static HostClassDesc<TcbPosition> desc(L"TCB Position", L"tcb_position", CTRL_POSITION_CLASS_ID,
                                           TCB_POSITION_CLASS_ID, false);
    return &desc;
}

}  // namespace host
