#pragma once

#include "host/math/Box3.h"
#include "host/object/ReferenceTarget.h"

namespace host {

class INode;
class ViewExp;
struct IPoint2;

// What every object and modifier of a node shares: drawing, picking and bounding
// boxes. Without a viewport a BaseObject draws nothing; its boxes are real, and the
// world box is the local one carried by the node's object transform.
class BaseObject : public ReferenceTarget {
public:
    virtual int Display(TimeValue, INode*, ViewExp*, int /*flags*/) { return 0; }
    virtual int HitTest(TimeValue, INode*, int /*type*/, int /*crossing*/, int /*flags*/, IPoint2*,
                        ViewExp*) {
        return 0;
    }
    virtual void GetLocalBoundBox(TimeValue, INode*, ViewExp*, Box3& box) { box.Init(); }
    virtual void GetWorldBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box);
    // The box of the points that a modifier deforms, through tm when given.
    virtual void GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm = nullptr, bool useSel = false);
};

}  // namespace host
