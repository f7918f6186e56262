#pragma once

#include <array>
#include <string>

#include "host/object/GraphicsWindow.h"
#include "host/viewport/HitTester.h"
#include "host/viewport/ViewProjection.h"

namespace host {

// What the drawing back-ends get: primitives already carried through the object
// transform and the view, cut at a perspective view's near plane, in window pixels (z
// the depth), with the world points they came from. For window-space calls the world
// points are the window points.
struct GWLine {
    Point3 world[2];
    Point3 window[2];
    Point3 color;
};
struct GWMarker {
    Point3 world;
    Point3 window;
    MarkerType type;
    Point3 color;
};
struct GWText {
    Point3 world;
    Point3 window;
    std::wstring text;
    Point3 color;
};
struct GWTriangle {
    Point3 world[3];
    Point3 window[3];
    Point3 color;
    float opacity;
};

// The part of a graphics window that does not depend on how pixels are made: the
// state (transform, colours, material, render limits), the projection of object
// points through the view, clipping, edge states, and picking, which happens here and
// never reaches the back-end. A back-end draws the primitives it is handed.
class ProjectedGraphicsWindow : public GraphicsWindow {
public:
    ProjectedGraphicsWindow(int width, int height);

    // The view, set by the viewport; its size is the window's.
    void SetProjection(const ViewProjection& projection);
    const ViewProjection& Projection() const { return projection_; }

    int getWinSizeX() override { return projection_.width; }
    int getWinSizeY() override { return projection_.height; }
    void clearScreen() override { DrawClear(colors_[CLEAR_COLOR]); }

    void setTransform(const Matrix3& tm) override;
    Matrix3 getTransform() override { return transform_; }
    void setColor(ColorType type, float r, float g, float b) override;
    using GraphicsWindow::setColor;
    Point3 getColor(ColorType type) override;
    void setMaterial(const Material& mtl, int) override { material_ = mtl; }
    Material* getMaterial() override { return &material_; }
    void setRndLimits(uint32_t limits) override { limits_ = limits; }
    uint32_t getRndLimits() override { return limits_; }

    void polyline(int ct, const Point3* xyz, const Point3* rgb, int closed, const int* es) override;
    void startSegments() override {}
    void segment(const Point3* xyz, int vis) override;
    void endSegments() override {}
    void marker(const Point3* xyz, MarkerType type) override;
    void text(const Point3* xyz, const wchar_t* s) override;
    void triangle(const Point3* xyz, const Point3* rgb) override;

    void wPolyline(int ct, const IPoint3* xyz, const Point3* rgb, int closed,
                   const int* es) override;
    void wMarker(const IPoint3* xyz, MarkerType type) override;
    void wText(const IPoint3* xyz, const wchar_t* s) override;

    int transPoint(const Point3* in, Point3* out) override;
    void wTransPoint(const Point3* in, IPoint3* out) override;

    void setHitRegion(const HitRegion* region) override;
    void clearHitCode() override { hits_.Clear(); }
    bool checkHitCode() override { return hits_.Hit(); }
    uint32_t getHitDistance() override { return hits_.Distance(); }
    float getHitDepth() override { return hits_.Depth(); }

protected:
    virtual void DrawClear(const Point3& color) = 0;
    virtual void DrawLine(const GWLine& line) = 0;
    virtual void DrawMarker(const GWMarker& marker) = 0;
    virtual void DrawText(const GWText& text) = 0;
    virtual void DrawTriangle(const GWTriangle& triangle) = 0;

private:
    bool Picking() const { return (limits_ & GW_PICK) != 0; }
    // Whether segment i of a polyline with edge states es is drawn.
    bool EdgeShown(const int* es, int i) const;
    // Object point to world and to view.
    Point3 ToWorld(const Point3& p) const { return p * transform_; }
    Point3 ToView(const Point3& world) const { return world * projection_.affineTM; }
    // A segment between two world points, cut at the near plane, to the back-end or
    // the hit test.
    void WorldLine(const Point3& a, const Point3& b, const Point3& color);
    void WindowLine(const Point3& a, const Point3& b, const Point3& color);
    // A point primitive: false when it lies behind the near plane.
    bool WorldPoint(const Point3& world, Point3& window);
    // The polyline walk shared by both spaces: segment i between points i and i + 1.
    template <typename Segment>
    void WalkPolyline(int ct, const Point3* rgb, int closed, const int* es, Segment draw);

    ViewProjection projection_;
    Matrix3 transform_;
    std::array<Point3, NUM_COLOR_TYPES> colors_;
    Material material_;
    uint32_t limits_ = GW_WIREFRAME | GW_Z_BUFFER;
    HitTester hits_;
};

}  // namespace host
