#pragma once

#include "host/math/Point3.h"

namespace host {

// Moves the points of an object, one at a time: Object::Deform hands it each point's
// index and position and stores what it returns.
class Deformer {
public:
    virtual ~Deformer() = default;
    virtual Point3 Map(int i, const Point3& p) = 0;
};

}  // namespace host
