#include "host/classes/EditableMesh.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/PolyObject.h"

namespace host {

ClassDesc2* GetEditableMeshDesc() {
    static HostClassDesc<EditableMesh> desc(L"Editable Mesh", L"editable_mesh", GEOMOBJECT_CLASS_ID,
                                            EDITABLE_MESH_CLASS_ID);
    return &desc;
}

EditableMesh::EditableMesh(bool) {}

bool EditableMesh::CanConvertToType(Class_ID cid) {
    return cid == ClassID() || cid == POLY_OBJECT_CLASS_ID;
}

Object* EditableMesh::ConvertToType(TimeValue, Class_ID cid) {
    if (cid == ClassID()) return this;
    if (cid == POLY_OBJECT_CLASS_ID) return CopyAs<PolyObject>();
    return nullptr;
}

}  // namespace host
