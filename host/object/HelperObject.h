#pragma once

#include "host/object/ClassRegistry.h"
#include "host/object/Object.h"

namespace host {

// An object that helps animate and is never rendered: point helpers, rig controls.
class HelperObject : public Object {
public:
    SClass_ID SuperClassID() override { return HELPER_CLASS_ID; }
};

}  // namespace host
