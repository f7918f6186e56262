#include "host/viewport/Viewport.h"

#include <cmath>

namespace host {

namespace {

// The normal of the construction plane of each view type.
Point3 PlaneNormal(int viewType) {
    switch (viewType) {
        case VIEW_FRONT:
        case VIEW_BACK:
            return Point3::YAxis;
        case VIEW_LEFT:
        case VIEW_RIGHT:
            return Point3::XAxis;
        default:
            return Point3::ZAxis;
    }
}

}  // namespace

Viewport::Viewport(ProjectedGraphicsWindow& gw, int viewType) : gw_(gw), viewType_(viewType) {
    ZoomExtents(Box3());
}

void Viewport::ZoomExtents(const Box3& worldBox, float margin) {
    gw_.SetProjection(
        ViewProjection::Frame(viewType_, worldBox, gw_.getWinSizeX(), gw_.getWinSizeY(), margin));
}

float Viewport::GetVPWorldWidth(const Point3& wp) {
    return gw_.Projection().WorldWidthAt(wp);
}

Point3 Viewport::GetPointOnCP(const IPoint2& ps) {
    const ViewProjection& view = gw_.Projection();
    Matrix3 viewToWorld = view.affineTM;
    viewToWorld.Invert();
    // The ray through the pixel: from the eye (or the pixel on the camera plane of an
    // orthographic view) through the pixel at a depth past the near plane.
    const Point3 near = view.perspective
                            ? viewToWorld.GetTrans()
                            : view.WindowToView(float(ps.x), float(ps.y), 0.0f) * viewToWorld;
    const float depth = 2.0f * view.nearClip;
    const Point3 far = view.WindowToView(float(ps.x), float(ps.y), depth) * viewToWorld;
    const Point3 normal = PlaneNormal(viewType_);
    const Point3 dir = far - near;
    const float along = DotProd(dir, normal);
    if (std::fabs(along) < 1e-12f) return near - normal * DotProd(near, normal);
    return near + dir * (-DotProd(near, normal) / along);
}

}  // namespace host
