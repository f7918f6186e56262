#pragma once

#include "host/object/ClassRegistry.h"
#include "host/object/Object.h"

namespace host {

// A geometric object: bones, meshes and polygon objects.
class GeomObject : public Object {
public:
    SClass_ID SuperClassID() override { return GEOMOBJECT_CLASS_ID; }
};

}  // namespace host
