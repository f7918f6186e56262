#pragma once

#include "host/classes/MeshObject.h"
#include "host/object/HostClassIds.h"

namespace host {

// The polygon object: a mesh of polygons of any degree. Modifier stacks work on copies
// of it, and tools that need polygons convert other objects to it.
class PolyObject : public MeshObject {
public:
    explicit PolyObject(bool loading = false);
    Class_ID ClassID() override { return POLY_OBJECT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Poly Object"); }
    Object* MakeShallowCopy(ChannelMask) override { return CopyAs<PolyObject>(); }
};

}  // namespace host
