#include "host/viewport/ViewProjection.h"

#include <algorithm>
#include <cmath>

#include "host/object/GraphicsConstants.h"

namespace host {

namespace {

// The smallest extent framed: a point or an empty scene still shows some space.
constexpr float kMinExtent = 10.0f;

// The direction from the scene towards the camera of each view type, in world space,
// and the world direction that shows as up. The perspective view looks from the front,
// right and above.
struct ViewAxes {
    Point3 towardCamera;
    Point3 up;
};

ViewAxes AxesOf(int type) {
    switch (type) {
        case VIEW_LEFT:
            return {-Point3::XAxis, Point3::ZAxis};
        case VIEW_RIGHT:
            return {Point3::XAxis, Point3::ZAxis};
        case VIEW_TOP:
            return {Point3::ZAxis, Point3::YAxis};
        case VIEW_BOTTOM:
            return {-Point3::ZAxis, -Point3::YAxis};
        case VIEW_BACK:
            return {Point3::YAxis, Point3::ZAxis};
        case VIEW_FRONT:
            return {-Point3::YAxis, Point3::ZAxis};
        default:
            return {Normalize(Point3(1.0f, -1.6f, 1.0f)), Point3::ZAxis};
    }
}

// The camera's frame (view to world) at eye looking along -towardCamera.
Matrix3 CameraFrame(const ViewAxes& axes, const Point3& eye) {
    const Point3 z = axes.towardCamera;
    const Point3 x = Normalize(CrossProd(axes.up, z));
    const Point3 y = CrossProd(z, x);
    return Matrix3(x, y, z, eye);
}

}  // namespace

Point3 ViewProjection::ViewToWindow(const Point3& v) const {
    const float depth = -v.z;
    const float ppu = PixelsPerUnit(depth);
    return {0.5f * float(width) + v.x * ppu, 0.5f * float(height) - v.y * ppu, depth};
}

Point3 ViewProjection::WindowToView(float x, float y, float depth) const {
    const float ppu = PixelsPerUnit(depth);
    return {(x - 0.5f * float(width)) / ppu, (0.5f * float(height) - y) / ppu, -depth};
}

float ViewProjection::PixelsPerUnit(float depth) const {
    if (!perspective) return scale;
    const float focal = 0.5f * float(width) / std::tan(0.5f * fov);
    return focal / std::max(depth, nearClip);
}

float ViewProjection::WorldWidthAt(const Point3& wp) const {
    const Point3 v = wp * affineTM;
    return float(width) / PixelsPerUnit(-v.z);
}

ViewProjection ViewProjection::Frame(int type, const Box3& worldBox, int width, int height,
                                     float margin) {
    ViewProjection p;
    p.width = std::max(width, 1);
    p.height = std::max(height, 1);
    p.viewType = type;
    p.perspective = type == VIEW_PERSP_USER;
    const Box3 box = worldBox.IsEmpty() ? Box3(Point3(), Point3()) : worldBox;
    const ViewAxes axes = AxesOf(type);

    // The box's extents across the view, about the middle of its projection.
    const Matrix3 orient = CameraFrame(axes, Point3());
    Matrix3 toOrient = orient;
    toOrient.Invert();
    Box3 seen;
    for (int i = 0; i < 8; ++i) seen += box[i] * toOrient;
    const Point3 middle = seen.Center() * orient;
    const float halfX = std::max(0.5f * seen.Width().x, 0.5f * kMinExtent);
    const float halfY = std::max(0.5f * seen.Width().y, 0.5f * kMinExtent);
    const float halfZ = std::max(0.5f * seen.Width().z, 0.5f * kMinExtent);
    const float usable = std::clamp(1.0f - 2.0f * margin, 0.05f, 1.0f);

    float distance;
    if (p.perspective) {
        // Fit the bounding sphere in the narrower of the two fields of view.
        const float radius = std::sqrt(halfX * halfX + halfY * halfY + halfZ * halfZ) / usable;
        const float halfFovX = 0.5f * p.fov;
        const float halfFovY = std::atan(std::tan(halfFovX) * float(p.height) / float(p.width));
        distance = radius / std::sin(std::min(halfFovX, halfFovY));
        p.nearClip = std::max(1e-3f, 1e-3f * distance);
    } else {
        p.scale =
            usable * std::min(float(p.width) / (2.0f * halfX), float(p.height) / (2.0f * halfY));
        distance = 2.0f * halfZ + kMinExtent;
    }
    p.affineTM = CameraFrame(axes, middle + axes.towardCamera * distance);
    p.affineTM.Invert();
    return p;
}

}  // namespace host
