#pragma once

#include "host/object/ClassRegistry.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// A custom attribute: a set of parameters added to any animatable through its
// attribute container. Its parameter block and panel come with the classes that use it.
class CustAttrib : public ReferenceTarget {
public:
    SClass_ID SuperClassID() override { return CUST_ATTRIB_CLASS_ID; }
    virtual const wchar_t* GetName() { return L""; }
};

}  // namespace host
