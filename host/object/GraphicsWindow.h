#pragma once

#include <cstdint>
#include <vector>

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/object/GraphicsConstants.h"
#include "host/object/IPoint2.h"

namespace host {

struct HitRegion;

// The material that shaded primitives are drawn with. Colours are RGB from 0 to 1.
struct Material {
    Point3 Ka{0.0f, 0.0f, 0.0f};  // ambient
    Point3 Kd{0.5f, 0.5f, 0.5f};  // diffuse
    Point3 Ks{0.0f, 0.0f, 0.0f};  // specular
    float shininess = 0.0f;
    float shinStrength = 0.0f;
    float opacity = 1.0f;
    float selfIllum = 0.0f;
};

// What a window shows, as pixels: rows from the top, each pixel 0xAARRGGBB.
struct WindowRaster {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

// The drawing interface of a viewport, as objects see it in Display and HitTest.
//
// Object-space calls (polyline, segment, marker, text, triangle) take points in the
// space of the current transform (setTransform: object to world); the window maps them
// through the view to window pixels. Window-space calls (the w and h variants) take
// pixels directly: x to the right and y down from the top left corner, z a depth. In
// this system hardware and window coordinates are the same, so each h call is its w
// call.
//
// Under the GW_PICK render limit nothing is drawn: each primitive is tested against the
// hit region, and checkHitCode tells whether any of them hit since clearHitCode.
class GraphicsWindow {
public:
    virtual ~GraphicsWindow() = default;

    // The window's size in pixels.
    virtual int getWinSizeX() = 0;
    virtual int getWinSizeY() = 0;
    // Fills the window with the clear colour.
    virtual void clearScreen() = 0;

    // Object to world transform of the object-space calls.
    virtual void setTransform(const Matrix3& tm) = 0;
    virtual Matrix3 getTransform() = 0;

    // Colours, RGB from 0 to 1, one per slot.
    virtual void setColor(ColorType type, float r, float g, float b) = 0;
    void setColor(ColorType type, const Point3& rgb) { setColor(type, rgb.x, rgb.y, rgb.z); }
    virtual Point3 getColor(ColorType type) = 0;
    virtual void setMaterial(const Material& mtl, int index = 0) = 0;
    virtual Material* getMaterial() = 0;

    // Render limits: GW_... bits.
    virtual void setRndLimits(uint32_t limits) = 0;
    virtual uint32_t getRndLimits() = 0;

    // A line through ct points (at most GW_MAX_POLYLINE_POINTS), back to the first
    // when closed. rgb, when given, holds a colour per point, and each segment takes
    // its first point's colour; otherwise the line colour. es, when given, holds the
    // edge state (GW_EDGE_...) of each segment.
    virtual void polyline(int ct, const Point3* xyz, const Point3* rgb, int closed,
                          const int* es) = 0;
    // Many separate lines: segment takes two points, drawn when vis is non-zero.
    virtual void startSegments() = 0;
    virtual void segment(const Point3* xyz, int vis) = 0;
    virtual void endSegments() = 0;
    virtual void marker(const Point3* xyz, MarkerType type) = 0;
    // Text with its lower left corner at the point.
    virtual void text(const Point3* xyz, const wchar_t* s) = 0;
    // A filled triangle in the fill colour (rgb: a colour per corner, the first used)
    // at the material's opacity.
    virtual void triangle(const Point3* xyz, const Point3* rgb) = 0;

    // The same in window pixels.
    virtual void wPolyline(int ct, const IPoint3* xyz, const Point3* rgb, int closed,
                           const int* es) = 0;
    virtual void wMarker(const IPoint3* xyz, MarkerType type) = 0;
    virtual void wText(const IPoint3* xyz, const wchar_t* s) = 0;
    void hPolyline(int ct, const IPoint3* xyz, const Point3* rgb, int closed, const int* es) {
        wPolyline(ct, xyz, rgb, closed, es);
    }
    void hMarker(const IPoint3* xyz, MarkerType type) { wMarker(xyz, type); }
    void hText(const IPoint3* xyz, const wchar_t* s) { wText(xyz, s); }

    // A point of the current transform's space in window pixels, z its depth in front
    // of the camera in world units. Answers non-zero when the point is clipped (behind
    // the near plane of a perspective view).
    virtual int transPoint(const Point3* in, Point3* out) = 0;
    // The same rounded to whole pixels; z is the depth in thousandths of a world unit.
    virtual void wTransPoint(const Point3* in, IPoint3* out) = 0;
    void hTransPoint(const Point3* in, IPoint3* out) { wTransPoint(in, out); }

    // Hit testing. The region is copied.
    virtual void setHitRegion(const HitRegion* region) = 0;
    virtual void clearHitCode() = 0;
    virtual bool checkHitCode() = 0;
    // The pixel distance of the closest hit from a point region (0 for other regions).
    virtual uint32_t getHitDistance() = 0;
    // The depth in front of the camera, in world units, of the closest hit.
    virtual float getHitDepth() = 0;

    // The window's pixels; false (and raster untouched) for a window that has none.
    virtual bool getDIB(WindowRaster& raster) = 0;
};

}  // namespace host
