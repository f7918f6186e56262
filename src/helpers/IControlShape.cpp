#include "helpers/IControlShape.h"

#include "helpers/HelperIds.h"

namespace zorvanta {

const host::FPInterfaceDesc* IControlShape::Desc() {
    static const host::FPInterfaceDesc desc =
        MakeDesc(CONTROL_SHAPE_INTERFACE_ID, L"IControlShape");
    return &desc;
}

}  // namespace zorvanta
