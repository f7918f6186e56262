#pragma once

#include "host/math/Box3.h"
#include "host/math/Matrix3.h"
#include "host/math/Point3.h"

namespace host {

// A view's camera and the mapping from world space to window pixels.
//
// View space has X to the right, Y up and the camera looking down -Z; the depth of a
// point is its distance in front of the camera along the view direction (world units).
// Window space has x to the right and y down from the top left corner, in pixels.
struct ViewProjection {
    // The field of view of perspective views, horizontal, radians.
    static constexpr float kDefaultFov = 0.7853982f;

    int width = 1;  // the window, pixels
    int height = 1;
    int viewType = 0;  // VIEW_...
    Matrix3 affineTM;  // world to view
    bool perspective = false;
    float fov = kDefaultFov;
    float scale = 1.0f;      // orthographic: pixels per world unit
    float nearClip = 0.01f;  // perspective: lines are cut at this depth

    // A view point in window pixels, z its depth. Perspective points must lie in front
    // of the near plane.
    Point3 ViewToWindow(const Point3& v) const;
    // The view point at depth under the pixel (x, y).
    Point3 WindowToView(float x, float y, float depth) const;
    // Whether a view point lies in front of the near plane (always in orthographic views).
    bool InFront(const Point3& v) const { return !perspective || -v.z >= nearClip; }
    // The world width of the window at the world point wp.
    float WorldWidthAt(const Point3& wp) const;
    // Pixels per world unit across the view direction at the given depth.
    float PixelsPerUnit(float depth) const;

    // The camera of view type `type` (VIEW_...) for a width by height window that
    // frames worldBox, leaving margin (a share of the window's smaller side) free on
    // each side. An empty or flat box is framed as a box of some size about its centre.
    static ViewProjection Frame(int type, const Box3& worldBox, int width, int height,
                                float margin);
};

}  // namespace host
