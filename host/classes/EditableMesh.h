#pragma once

#include "host/classes/MeshObject.h"
#include "host/object/HostClassIds.h"

namespace host {

// The editable mesh: a base object whose vertices, faces and face selection users edit
// directly. It converts to a polygon object with the same vertices and faces, in the
// same order, face flags included.
class EditableMesh : public MeshObject {
public:
    explicit EditableMesh(bool loading = false);
    Class_ID ClassID() override { return EDITABLE_MESH_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Editable Mesh"); }

    bool CanConvertToType(Class_ID cid) override;
    // This object for its own class; a new PolyObject, owned by the caller, for the
    // polygon class; null otherwise.
    Object* ConvertToType(TimeValue t, Class_ID cid) override;
    Object* MakeShallowCopy(ChannelMask) override { return CopyAs<EditableMesh>(); }
};

}  // namespace host
