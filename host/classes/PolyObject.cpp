#include "host/classes/PolyObject.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetPolyObjectDesc() {
    static HostClassDesc<PolyObject> desc(L"Poly Object", L"poly_object", GEOMOBJECT_CLASS_ID,
                                          POLY_OBJECT_CLASS_ID);
    return &desc;
}

PolyObject::PolyObject(bool) {}

}  // namespace host
