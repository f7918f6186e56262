#pragma once

#include "helpers/ControlInterface.h"

namespace zorvanta {

// The control helper's published interface (see ControlInterface): scripts reach it on
// any control helper.
class IControlHelper : public ControlInterface {
public:
    static const host::FPInterfaceDesc* Desc();
    const host::FPInterfaceDesc* GetDesc() override { return Desc(); }
};

}  // namespace zorvanta
