#include "host/viewport/ProjectedGraphicsWindow.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace host {

namespace {

Point3 ToPoint3(const IPoint3& p) {
    return {float(p.x), float(p.y), float(p.z)};
}

}  // namespace

ProjectedGraphicsWindow::ProjectedGraphicsWindow(int width, int height) {
    projection_.width = std::max(width, 1);
    projection_.height = std::max(height, 1);
    colors_.fill(Point3(1, 1, 1));
    colors_[CLEAR_COLOR] = Point3(0, 0, 0);
}

void ProjectedGraphicsWindow::SetProjection(const ViewProjection& projection) {
    projection_ = projection;
}

void ProjectedGraphicsWindow::setTransform(const Matrix3& tm) {
    transform_ = tm;
}

void ProjectedGraphicsWindow::setColor(ColorType type, float r, float g, float b) {
    if (type >= 0 && type < NUM_COLOR_TYPES) colors_[size_t(type)] = Point3(r, g, b);
}

Point3 ProjectedGraphicsWindow::getColor(ColorType type) {
    return type >= 0 && type < NUM_COLOR_TYPES ? colors_[size_t(type)] : Point3();
}

bool ProjectedGraphicsWindow::EdgeShown(const int* es, int i) const {
    if (!es) return true;
    return es[i] == GW_EDGE_VIS || (es[i] == GW_EDGE_INVIS && (limits_ & GW_ALL_EDGES));
}

template <typename Segment>
void ProjectedGraphicsWindow::WalkPolyline(int ct, const Point3* rgb, int closed, const int* es,
                                           Segment draw) {
    assert(ct <= GW_MAX_POLYLINE_POINTS && "polyline takes at most 32 points");
    ct = std::min(ct, GW_MAX_POLYLINE_POINTS);
    const int segments = closed && ct > 2 ? ct : ct - 1;
    for (int i = 0; i < segments; ++i)
        if (EdgeShown(es, i)) draw(i, (i + 1) % ct, rgb ? rgb[i] : colors_[LINE_COLOR]);
}

void ProjectedGraphicsWindow::polyline(int ct, const Point3* xyz, const Point3* rgb, int closed,
                                       const int* es) {
    WalkPolyline(ct, rgb, closed, es, [&](int a, int b, const Point3& color) {
        WorldLine(ToWorld(xyz[a]), ToWorld(xyz[b]), color);
    });
}

void ProjectedGraphicsWindow::wPolyline(int ct, const IPoint3* xyz, const Point3* rgb, int closed,
                                        const int* es) {
    WalkPolyline(ct, rgb, closed, es, [&](int a, int b, const Point3& color) {
        WindowLine(ToPoint3(xyz[a]), ToPoint3(xyz[b]), color);
    });
}

void ProjectedGraphicsWindow::segment(const Point3* xyz, int vis) {
    if (vis) WorldLine(ToWorld(xyz[0]), ToWorld(xyz[1]), colors_[LINE_COLOR]);
}

void ProjectedGraphicsWindow::WorldLine(const Point3& a, const Point3& b, const Point3& color) {
    Point3 va = ToView(a), vb = ToView(b);
    Point3 wa = a, wb = b;
    const bool aIn = projection_.InFront(va), bIn = projection_.InFront(vb);
    if (!aIn && !bIn) return;
    if (!aIn || !bIn) {
        // Cut at the near plane: the point where the depth equals nearClip.
        const float u = (-projection_.nearClip - va.z) / (vb.z - va.z);
        const Point3 cutView = va + (vb - va) * u, cutWorld = a + (b - a) * u;
        (aIn ? vb : va) = cutView;
        (aIn ? wb : wa) = cutWorld;
    }
    const Point3 pa = projection_.ViewToWindow(va), pb = projection_.ViewToWindow(vb);
    if (Picking()) {
        hits_.TestSegment(pa, pb);
        return;
    }
    DrawLine({{wa, wb}, {pa, pb}, color});
}

void ProjectedGraphicsWindow::WindowLine(const Point3& a, const Point3& b, const Point3& color) {
    if (Picking()) {
        hits_.TestSegment(a, b);
        return;
    }
    DrawLine({{a, b}, {a, b}, color});
}

bool ProjectedGraphicsWindow::WorldPoint(const Point3& world, Point3& window) {
    const Point3 v = ToView(world);
    if (!projection_.InFront(v)) return false;
    window = projection_.ViewToWindow(v);
    return true;
}

void ProjectedGraphicsWindow::marker(const Point3* xyz, MarkerType type) {
    const Point3 world = ToWorld(*xyz);
    Point3 window;
    if (!WorldPoint(world, window)) return;
    if (Picking()) return hits_.TestPoint(window);
    DrawMarker({world, window, type, colors_[MARKER_COLOR]});
}

void ProjectedGraphicsWindow::wMarker(const IPoint3* xyz, MarkerType type) {
    const Point3 window = ToPoint3(*xyz);
    if (Picking()) return hits_.TestPoint(window);
    DrawMarker({window, window, type, colors_[MARKER_COLOR]});
}

void ProjectedGraphicsWindow::text(const Point3* xyz, const wchar_t* s) {
    const Point3 world = ToWorld(*xyz);
    Point3 window;
    if (!s || !WorldPoint(world, window)) return;
    if (Picking()) return hits_.TestPoint(window);
    DrawText({world, window, s, colors_[TEXT_COLOR]});
}

void ProjectedGraphicsWindow::wText(const IPoint3* xyz, const wchar_t* s) {
    if (!s) return;
    const Point3 window = ToPoint3(*xyz);
    if (Picking()) return hits_.TestPoint(window);
    DrawText({window, window, s, colors_[TEXT_COLOR]});
}

void ProjectedGraphicsWindow::triangle(const Point3* xyz, const Point3* rgb) {
    GWTriangle tri{{}, {}, rgb ? rgb[0] : colors_[FILL_COLOR], material_.opacity};
    for (int i = 0; i < 3; ++i) {
        tri.world[i] = ToWorld(xyz[i]);
        // A triangle that reaches behind a perspective camera is left out whole.
        if (!WorldPoint(tri.world[i], tri.window[i])) return;
    }
    if (Picking()) return hits_.TestTriangle(tri.window[0], tri.window[1], tri.window[2]);
    DrawTriangle(tri);
}

int ProjectedGraphicsWindow::transPoint(const Point3* in, Point3* out) {
    const Point3 v = ToView(ToWorld(*in));
    *out = projection_.ViewToWindow(v);
    return projection_.InFront(v) ? 0 : 1;
}

void ProjectedGraphicsWindow::wTransPoint(const Point3* in, IPoint3* out) {
    Point3 p;
    transPoint(in, &p);
    *out = {int(std::lround(p.x)), int(std::lround(p.y)), int(std::lround(p.z * 1000.0f))};
}

void ProjectedGraphicsWindow::setHitRegion(const HitRegion* region) {
    if (region) hits_.SetRegion(*region);
}

}  // namespace host
