#include "host/classes/TcbFloat.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetTcbFloatDesc() {
    static HostClassDesc<TcbFloat> desc(L"TCB Float", L"tcb_float", CTRL_FLOAT_CLASS_ID,
                                        TCB_FLOAT_CLASS_ID, false);
    return &desc;
}

}  // namespace host
