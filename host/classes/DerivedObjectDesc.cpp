#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/DerivedObject.h"

namespace host {

// The derived object lives in the object model, below the host's classes; its
// descriptor is one of theirs.
ClassDesc2* GetDerivedObjectDesc() {
    static HostClassDesc<DerivedObject> desc(L"Derived Object", L"derived_object",
                                             GEN_DERIVOB_CLASS_ID, DERIVED_OBJECT_CLASS_ID, false);
    return &desc;
}

}  // namespace host
