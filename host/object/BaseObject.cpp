#include "host/object/BaseObject.h"

#include "host/object/INode.h"

namespace host {

void BaseObject::GetWorldBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    GetLocalBoundBox(t, node, vpt, box);
    if (node && !box.IsEmpty()) box = box * node->GetObjectTM(t);
}

void BaseObject::GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm, bool) {
    GetLocalBoundBox(t, nullptr, nullptr, box);
    if (tm && !box.IsEmpty()) box = box * *tm;
}

}  // namespace host
