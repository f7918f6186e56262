#include "rig/RigConstraints.h"

#include "frame/FrameIds.h"
#include "host/classes/OrientationConstraint.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Control.h"
#include "host/object/IParamBlock2.h"

namespace zorvanta {

using namespace host;

namespace {

// The parameter ids that the helpers write in the blocks of the toolkit's constraints.
// Parent and transform constraints share weight, target_list and relative; the parent
// constraint keeps its offsets in a matrix table.
enum BlendConstraintParam : ParamID {
    kWeight = 0,
    kTargetList = 1,
    kRelative = 2,
    kOffsetList = 3,
};
enum StretchConstraintParam : ParamID {
    kStretchStart = 0,
    kStretchEnd = 2,
    kStretchAlignAxis = 6,
    kStretchScaleActive = 10,
    kStretchViewlineLength = 14,
};

Control* MakeControl(SClass_ID superClass, const Class_ID& id) {
    return dynamic_cast<Control*>(CreateInstance(superClass, id));
}

// A blending constraint of class id on node, copying the old controller, with target at
// weight; the block is returned for the caller's own settings, or null when the class
// or its block is missing (the node then keeps its controller).
IParamBlock2* AssignBlend(INode* node, INode* target, const Class_ID& id, float weight) {
    if (!node || !target) return nullptr;
    // The toolkit's constraints come from the class factory.
    Control* constraint = MakeControl(CTRL_MATRIX3_CLASS_ID, id);
    IParamBlock2* pb = constraint ? constraint->GetParamBlock(0) : nullptr;
    if (!pb) return nullptr;
    if (Control* old = node->GetTMController()) constraint->Copy(old);
    node->SetTMController(constraint);
    const int at = pb->Append(kTargetList, 1);
    pb->SetValue(kTargetList, 0, static_cast<ReferenceTarget*>(target), at);
    if (pb->Count(kWeight) <= at) pb->SetCount(kWeight, at + 1);
    pb->SetValue(kWeight, 0, weight, at);
    return pb;
}

}  // namespace

bool ConstrainParent(INode* node, INode* target, bool keepOffset) {
    if (!node) return false;
    const Matrix3 world = node->GetNodeTM(0);
    const Matrix3 local = world * Inverse(node->GetParentTM(0));
    IParamBlock2* pb = AssignBlend(node, target, PARENT_CONSTRAINT_CLASS_ID, 100.0f);
    if (!pb) return false;
    if (keepOffset) {
        pb->SetCount(kOffsetList, pb->Count(kTargetList));
        pb->SetValue(kOffsetList, 0, local, pb->Count(kTargetList) - 1);
        pb->SetValue(kRelative, 0, 1);
    }
    node->SetNodeTM(0, world);
    return true;
}

bool ConstrainTransform(INode* node, INode* target, bool keepOffset) {
    IParamBlock2* pb = AssignBlend(node, target, TRANSFORM_CONSTRAINT_CLASS_ID, 1.0f);
    if (!pb) return false;
    if (keepOffset) pb->SetValue(kRelative, 0, 1);
    return true;
}

bool ConstrainStretch(INode* node, INode* start, INode* end, int alignAxis) {
    if (!node) return false;
    // The stretch constraint comes from the class factory.
    Control* stretch = MakeControl(CTRL_MATRIX3_CLASS_ID, STRETCH_CONSTRAINT_CLASS_ID);
    IParamBlock2* pb = stretch ? stretch->GetParamBlock(0) : nullptr;
    if (!pb) return false;
    node->SetTMController(stretch);
    pb->SetValue(kStretchStart, 0, static_cast<ReferenceTarget*>(start));
    pb->SetValue(kStretchEnd, 0, static_cast<ReferenceTarget*>(end));
    pb->SetValue(kStretchAlignAxis, 0, alignAxis);
    pb->SetValue(kStretchScaleActive, 0, 0);
    pb->SetValue(kStretchViewlineLength, 0, 0.0f);
    return true;
}

bool ConstrainOrientation(INode* node, const INodeTab& targets, bool /*keepAll*/, int /*axis*/) {
    Control* tmc = node ? node->GetTMController() : nullptr;
    if (!tmc || targets.Count() == 0) return false;
    auto* constraint = dynamic_cast<OrientationConstraint*>(
        MakeControl(CTRL_ROTATION_CLASS_ID, ORIENTATION_CONSTRAINT_CLASS_ID));
    if (!constraint) return false;
    if (!tmc->SetRotationController(constraint)) {
        constraint->DeleteMe();
        return false;
    }
    const float share = 100.0f / float(targets.Count());
    for (INode* target : targets) constraint->AppendTarget(target, share);
    return true;
}

bool AssignPRSStatic(INode* node, int /*flags*/) {
    if (!node) return false;
    Control* prs = MakeControl(CTRL_MATRIX3_CLASS_ID, PRS_CLASS_ID);
    if (!prs) return false;
    const Matrix3 world = node->GetNodeTM(0);
    node->SetTMController(prs);
    if (Control* c = MakeControl(CTRL_POSITION_CLASS_ID, STATIC_POSITION_CLASS_ID))
        prs->SetPositionController(c);
    if (Control* c = MakeControl(CTRL_ROTATION_CLASS_ID, STATIC_ROTATION_CLASS_ID))
        prs->SetRotationController(c);
    if (Control* c = MakeControl(CTRL_SCALE_CLASS_ID, STATIC_SCALE_CLASS_ID))
        prs->SetScaleController(c);
    node->SetNodeTM(0, world);
    return true;
}

}  // namespace zorvanta
