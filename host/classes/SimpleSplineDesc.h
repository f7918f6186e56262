#pragma once

#include "host/classes/HostClassDesc.h"
#include "host/classes/SimpleSpline.h"
#include "host/object/ClassRegistry.h"

namespace host {

// The descriptor of a procedural shape class T: a shape-superclass HostClassDesc that
// lists the shared interpolation block beside the blocks T's own definitions add.
template <class T>
class SimpleSplineDesc : public HostClassDesc<T> {
public:
    SimpleSplineDesc(const wchar_t* name, const wchar_t* internalName, Class_ID id,
                     bool isPublic = true)
        : HostClassDesc<T>(name, internalName, SHAPE_CLASS_ID, id, isPublic) {
        this->AddParamBlockDesc(SimpleSpline::GetInterpBlockDesc());
    }
};

}  // namespace host
