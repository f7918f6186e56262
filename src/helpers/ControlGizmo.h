#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Quat.h"
#include "host/object/SubObject.h"

// The sub-object levels that the control helper and the control shape share: "Gizmo",
// where the viewport's transform tools change the gizmo (the matrix that places the
// shape inside the object), and "Selector Polygon", where faces of the selector node
// are picked.
namespace host {
class GraphicsWindow;
}

namespace zorvanta {

enum ControlSubObjLevel : int { kObjectLevel = 0, kGizmoLevel = 1, kSelectorLevel = 2 };

// The level's type for GetSubObjType: 0 "Gizmo", 1 "Selector Polygon", null otherwise.
host::ISubObjType* ControlSubObjType(int i);

// The six command modes of the two levels (move, rotate, non-uniform and uniform scale,
// squash; select), made while a control object is edited and shared by all of them:
// the host edits one object at a time.
void MakeControlModes();
void DropControlModes();
// What level hands the host: the five transform modes at the gizmo level, the select
// mode at the selector level (none before MakeControlModes), nothing at other levels.
host::XFormModes ControlLevelModes(int level);

// Marks the gizmo level on a drawn control: a hollow box at the object's origin
// (objectTM: object to world) in the gizmo colour.
void DrawGizmoMarker(host::GraphicsWindow* gw, const host::Matrix3& objectTM);

// The gizmo after one step of a transform tool. The tool's value acts in the axis
// system partm * inverse(tmAxis): the gizmo is carried into it, changed there and
// carried back. A camera-facing shape turns and scales in its own plane instead.
host::Matrix3 MovedGizmo(const host::Matrix3& gizmo, const host::Matrix3& partm,
                         const host::Matrix3& tmAxis, const host::Point3& val);
host::Matrix3 RotatedGizmo(const host::Matrix3& gizmo, const host::Matrix3& partm,
                           const host::Matrix3& tmAxis, const host::Quat& val, bool faceCamera);
host::Matrix3 ScaledGizmo(const host::Matrix3& gizmo, const host::Matrix3& partm,
                          const host::Matrix3& tmAxis, const host::Point3& val, bool faceCamera);

}  // namespace zorvanta
