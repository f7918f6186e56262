#pragma once

#include "host/object/INode.h"

// The constraint helpers every rig builder uses. Each puts a controller on a node and
// answers whether it did: a constraint class that the class factory cannot make (a
// later part of the toolkit) leaves the node as it was and answers false.
namespace zorvanta {

// A ParentConstraint in place of node's transform controller, holding the old one
// under it, with target at weight 100; the node keeps its world transform. With
// keepOffset the constraint is relative and its offset is the node's present transform
// relative to its parent.
bool ConstrainParent(host::INode* node, host::INode* target, bool keepOffset);
// The same with a TransformConstraint, weight 1, without restoring the world transform.
bool ConstrainTransform(host::INode* node, host::INode* target, bool keepOffset);
// A StretchConstraint from start to end, aligned on alignAxis, without stretch scale
// and view line.
bool ConstrainStretch(host::INode* node, host::INode* start, host::INode* end, int alignAxis);
// The host's orientation constraint as node's rotation controller, with each target at
// an equal share (100 / count). keepAll and axis are kept for the builders that pass
// them; the host's constraint takes whole rotations.
bool ConstrainOrientation(host::INode* node, const host::INodeTab& targets, bool keepAll, int axis);
// A plain PRS of StaticPosition, StaticRotation and StaticScale as node's transform
// controller, keeping the node's world transform. flags is kept for the builders that
// pass it.
bool AssignPRSStatic(host::INode* node, int flags);

}  // namespace zorvanta
