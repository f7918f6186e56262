#include "helpers/IControlHelper.h"

#include "helpers/HelperIds.h"

namespace zorvanta {

const host::FPInterfaceDesc* IControlHelper::Desc() {
    static const host::FPInterfaceDesc desc =
        MakeDesc(CONTROL_HELPER_INTERFACE_ID, L"IControlHelper");
    return &desc;
}

}  // namespace zorvanta
