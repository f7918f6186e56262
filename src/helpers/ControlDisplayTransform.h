#pragma once

#include "host/math/Matrix3.h"

namespace host {
class ViewExp;
}

namespace zorvanta {

// How a control helper places its shape, from its block at one time.
struct ControlDisplaySettings {
    // The shape's own matrix inside the object (shape space to object space).
    host::Matrix3 gizmo;
    // The object axis the shape's local Z stands along: 0 X, 1 Y, 2 Z.
    int axis = 2;
    // The shape lies in the view plane, keeping the object's position and its X and Y
    // scale; the gizmo then turns and scales it in that plane but never moves it.
    bool faceCamera = false;
    // The shape keeps its size on screen: one world unit becomes 0.005 of the view's
    // width at the object.
    bool constantScreenSize = false;
};

// The factor a view's world width gives a constant-size shape, and the depth scale of a
// shape that faces the camera (flat, but not degenerate).
inline constexpr float kScreenSizeFactor = 0.005f;
inline constexpr float kFaceCameraDepth = 0.001f;

// Shape space to object space for the object axis the shape's local Z stands along:
// axis 0 stands it along X, axis 1 along Y (turned so that X points back), axis 2
// leaves the shape as it is (the identity).
host::Matrix3 ControlAxisFrame(int axis);

// The display transform: shape space to world for the object transform objectTM (object
// to world). vpt is the view that face_camera and constant_screen_size read; without a
// live view both are left out.
host::Matrix3 ControlDisplayTM(const host::Matrix3& objectTM, const ControlDisplaySettings& s,
                               host::ViewExp* vpt);

}  // namespace zorvanta
