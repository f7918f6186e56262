#include "helpers/ControlDisplayTransform.h"

#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

namespace {

// The rows take the shape's X, Y and Z to the object's, for axes 0 and 1.
const Matrix3 kAxisFrames[2] = {
    Matrix3(Point3(0, 1, 0), Point3(0, 0, 1), Point3(1, 0, 0), Point3(0, 0, 0)),
    Matrix3(Point3(-1, 0, 0), Point3(0, 0, 1), Point3(0, 1, 0), Point3(0, 0, 0)),
};

// The object's frame turned to face the view: the inverse of the view's rotation at the
// object's position (moved by the gizmo's offset), with the object's X and Y scale and a
// flat depth.
Matrix3 FacingFrame(const Matrix3& objectTM, const Matrix3& gizmo, ViewExp* vpt) {
    Matrix3 placed = objectTM;
    placed.PreTranslate(gizmo.GetTrans());
    const Point3 position = placed.GetTrans();
    const float sx = Length(placed.GetRow(0));
    const float sy = Length(placed.GetRow(1));
    Matrix3 view;
    vpt->GetAffineTM(view);
    Matrix3 facing = Inverse(view);
    facing.SetTrans(position);
    facing.ClearIdentFlag(Matrix3::MAT_IDENT);
    facing.PreScale(Point3(sx, sy, kFaceCameraDepth));
    return facing;
}

}  // namespace

Matrix3 ControlAxisFrame(int axis) {
    return axis == 0 || axis == 1 ? kAxisFrames[axis] : Matrix3();
}

Matrix3 ControlDisplayTM(const Matrix3& objectTM, const ControlDisplaySettings& s, ViewExp* vpt) {
    const bool live = vpt && vpt->IsAlive();
    Matrix3 tm;
    if (s.faceCamera && live) {
        Matrix3 turnOnly = s.gizmo;
        turnOnly.NoTrans();
        tm = turnOnly * FacingFrame(objectTM, s.gizmo, vpt);
    } else {
        tm = s.gizmo * objectTM;
        tm = ControlAxisFrame(s.axis) * tm;
    }
    if (s.constantScreenSize && live) {
        const float scale = vpt->GetVPWorldWidth(tm.GetTrans()) * kScreenSizeFactor;
        tm.PreScale(Point3(scale, scale, scale));
    }
    return tm;
}

}  // namespace zorvanta
