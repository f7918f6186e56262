#pragma once

#include "host/core/TimeValue.h"
#include "host/math/Box3.h"
#include "host/object/IPoint2.h"

namespace host {

class INode;
class Interface;
class Viewport;

// Drawing and picking a whole scene in a viewport. Every node that is not hidden takes
// part, each through its object as evaluated at the time (EvalWorldState) under its
// object transform; the objects choose their colours from the node's state.

// The world box of the visible nodes' objects at t; empty for a scene with none.
Box3 SceneBounds(Interface& ip, TimeValue t);

// Clears the view to the background colour, draws the home grid when asked, then every
// visible node.
void DrawScene(Interface& ip, Viewport& view, TimeValue t, bool grid = false);

// The visible, unfrozen node drawn nearest the pixel p (within a few pixels), and of
// equally near ones the nearest the camera; null when p is over empty space. The
// view's hit log holds every node hit.
INode* HitTestScene(Interface& ip, Viewport& view, TimeValue t, IPoint2 p);

}  // namespace host
