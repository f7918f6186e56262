#pragma once

#include "host/core/TimeValue.h"
#include "host/math/Point3.h"
#include "host/object/INode.h"

namespace host {

class BaseObject;
class GraphicsWindow;
class ViewExp;
struct IPoint2;
struct SnapInfo;

// What the host's objects share when they draw: the UI colours, the colour a node's
// wireframe takes, and picking by drawing.

// UI colour `which` (COLOR_...), RGB from 0 to 1; mid grey for a number with no colour.
Point3 GetUIColor(int which);
// A COLORREF as RGB from 0 to 1.
Point3 ColorRefToPoint3(COLORREF color);

// Sets the line and marker colours for the node's wireframe: white for a selected node,
// the freeze colour for a frozen one, the node's wire colour otherwise.
void SetWireColors(GraphicsWindow* gw, INode* node);

// The common start of an object's Display: the graphics window of a live view with the
// node's object transform at t and the node's wire colours set; null when there is no
// live view.
GraphicsWindow* BeginNodeDisplay(TimeValue t, INode* node, ViewExp* vpt);

// Picks by drawing: sets a hit region from (type, crossing, p) with 4 pixels of
// tolerance, draws the object in pick mode and answers whether anything it drew hit.
// The graphics window's render limits and hit region state are left as they were
// found, except for the hit code and distance, which the caller reads.
int HitTestByDisplay(BaseObject* object, TimeValue t, INode* node, int type, int crossing,
                     int flags, IPoint2* p, ViewExp* vpt);

// The common point snap: offers point (in the space of tm, which takes it to world) to
// snap when it lies within the snap radius of the cursor p in vpt and beats the best
// point so far. A 2D snap, or one with SNAP_IN_PLANE, ignores a point more than 0.0001
// off the construction plane. Answers whether the point became the best.
bool PointSnap(SnapInfo* snap, const Matrix3& tm, const Point3& point, IPoint2* p, ViewExp* vpt);

}  // namespace host
