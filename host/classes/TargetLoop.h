#pragma once

#include "host/object/INode.h"

namespace host {

// Whether a controller that reads node's world transform would feed on itself: node
// depends on the controller through references (ReferenceTarget::TestForLoop, which
// also catches the node the controller drives), or node lies below a node that depends
// on it, so that node's world transform follows the controller's own value.
bool TargetWouldLoop(ReferenceTarget* controller, INode* node);

}  // namespace host
