#include "host/object/ObjectDisplay.h"

#include <array>
#include <cmath>
#include <utility>

#include "host/object/BaseObject.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/HitRegion.h"
#include "host/object/SnapInfo.h"
#include "host/object/ViewExp.h"

namespace host {

namespace {

// The UI colours that the host's objects and views use, by number.
constexpr std::array<std::pair<int, Point3>, 13> kUIColors{{
    {COLOR_SELECTION, {1.0f, 1.0f, 1.0f}},
    {COLOR_SUBSELECTION, {1.0f, 0.0f, 0.0f}},
    {COLOR_FREEZE, {0.6f, 0.6f, 0.6f}},
    {COLOR_GRID, {0.35f, 0.35f, 0.35f}},
    {COLOR_GRID_INTENS, {0.0f, 0.0f, 0.0f}},
    {COLOR_VP_LABELS, {0.9f, 0.9f, 0.9f}},
    {COLOR_LINK_LINES, {1.0f, 1.0f, 1.0f}},
    {COLOR_POINT_OBJ, {0.0f, 0.8f, 0.0f}},
    {COLOR_POINT_AXES, {0.7f, 0.7f, 0.7f}},
    {COLOR_BONES, {0.9f, 0.9f, 0.6f}},
    {COLOR_GIZMOS, {1.0f, 0.8f, 0.0f}},
    {COLOR_SEL_GIZMOS, {1.0f, 1.0f, 0.0f}},
    {COLOR_VIEWPORT_BKG, {0.18f, 0.18f, 0.19f}},
}};

}  // namespace

Point3 GetUIColor(int which) {
    for (const auto& [id, rgb] : kUIColors)
        if (id == which) return rgb;
    return {0.5f, 0.5f, 0.5f};
}

Point3 ColorRefToPoint3(COLORREF color) {
    return {float(color & 0xFF) / 255.0f, float((color >> 8) & 0xFF) / 255.0f,
            float((color >> 16) & 0xFF) / 255.0f};
}

void SetWireColors(GraphicsWindow* gw, INode* node) {
    Point3 rgb = ColorRefToPoint3(node->GetWireColor());
    if (node->Selected())
        rgb = GetUIColor(COLOR_SELECTION);
    else if (node->IsFrozen())
        rgb = GetUIColor(COLOR_FREEZE);
    gw->setColor(LINE_COLOR, rgb);
    gw->setColor(MARKER_COLOR, rgb);
}

GraphicsWindow* BeginNodeDisplay(TimeValue t, INode* node, ViewExp* vpt) {
    if (!vpt || !vpt->IsAlive() || !node) return nullptr;
    GraphicsWindow* gw = vpt->getGW();
    gw->setTransform(node->GetObjectTM(t));
    SetWireColors(gw, node);
    return gw;
}

int HitTestByDisplay(BaseObject* object, TimeValue t, INode* node, int type, int crossing,
                     int flags, IPoint2* p, ViewExp* vpt) {
    if (!vpt || !vpt->IsAlive() || !p) return 0;
    GraphicsWindow* gw = vpt->getGW();
    HitRegion region;
    MakeHitRegion(region, type, crossing, 4, p);
    const uint32_t limits = gw->getRndLimits();
    gw->setHitRegion(&region);
    gw->setRndLimits(limits | GW_PICK);
    gw->clearHitCode();
    object->Display(t, node, vpt, flags);
    gw->setRndLimits(limits);
    return gw->checkHitCode() ? 1 : 0;
}

bool PointSnap(SnapInfo* snap, const Matrix3& tm, const Point3& point, IPoint2* p, ViewExp* vpt) {
    if (!snap || !p || !vpt || !vpt->IsAlive()) return false;
    if (snap->vertPriority <= 0 || snap->vertPriority > snap->priority) return false;
    const Point3 world = point * tm;
    if (snap->snapType == SNAP_2D || (snap->flags & SNAP_IN_PLANE)) {
        const Point3 inPlane = world * Inverse(snap->plane);
        if (std::fabs(inPlane.z) > 0.0001f) return false;
    }
    GraphicsWindow* gw = vpt->getGW();
    const Matrix3 saved = gw->getTransform();
    gw->setTransform(Matrix3());
    IPoint3 pixel;
    gw->wTransPoint(&world, &pixel);
    gw->setTransform(saved);
    const Point2 screen(float(pixel.x), float(pixel.y));
    const int distance = int((screen - Point2(float(p->x), float(p->y))).Length());
    if (distance > snap->strength) return false;
    // A better priority wins outright; an equal one only nearer the cursor.
    if (snap->vertPriority == snap->priority && distance >= snap->bestDist) return false;
    snap->priority = snap->vertPriority;
    snap->bestWorld = world;
    snap->bestScreen = screen;
    snap->bestDist = distance;
    snap->found = true;
    return true;
}

}  // namespace host
