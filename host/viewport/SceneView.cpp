#include "host/viewport/SceneView.h"

#include <cmath>

#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/object/Control.h"
#include "host/object/ObjectDisplay.h"
#include "host/viewport/Viewport.h"

namespace host {

namespace {

// Lines of the grid on each side of its middle, at most.
constexpr int kGridHalfLines = 25;

// Calls visit(node, object) for every node under root that is not hidden and has an
// object at t.
template <typename Visit>
void ForEachShown(INode* root, TimeValue t, Visit visit) {
    for (int i = 0; i < root->NumberOfChildren(); ++i) {
        INode* node = root->GetChildNode(i);
        if (!node->IsHidden())
            if (Object* object = node->EvalWorldState(t).obj) visit(node, object);
        ForEachShown(node, t, visit);
    }
}

// The two world axes that span the construction plane of a view type.
void GridAxes(int viewType, Point3& u, Point3& v) {
    switch (viewType) {
        case VIEW_FRONT:
        case VIEW_BACK:
            u = Point3::XAxis, v = Point3::ZAxis;
            break;
        case VIEW_LEFT:
        case VIEW_RIGHT:
            u = Point3::YAxis, v = Point3::ZAxis;
            break;
        default:
            u = Point3::XAxis, v = Point3::YAxis;
            break;
    }
}

// Grid lines a power of ten apart, about ten across the view, around the middle of the
// view on the construction plane; the lines through the world origin are darker.
void DrawGrid(Viewport& view) {
    GraphicsWindow* gw = view.getGW();
    const Point3 middle = view.GetPointOnCP({gw->getWinSizeX() / 2, gw->getWinSizeY() / 2});
    const float width = view.GetVPWorldWidth(middle);
    if (!(width > 0.0f) || !std::isfinite(width)) return;
    const float spacing = std::pow(10.0f, std::floor(std::log10(width / 10.0f)));
    Point3 u, v;
    GridAxes(view.GetViewType(), u, v);
    const float extent = spacing * float(kGridHalfLines);
    const float mu = std::round(DotProd(middle, u) / spacing) * spacing;
    const float mv = std::round(DotProd(middle, v) / spacing) * spacing;
    gw->setTransform(Matrix3());
    for (int i = -kGridHalfLines; i <= kGridHalfLines; ++i) {
        const float a = mu + float(i) * spacing, b = mv + float(i) * spacing;
        const Point3 alongV[2] = {u * a + v * (mv - extent), u * a + v * (mv + extent)};
        const Point3 alongU[2] = {v * b + u * (mu - extent), v * b + u * (mu + extent)};
        gw->setColor(LINE_COLOR,
                     GetUIColor(std::fabs(a) < 0.5f * spacing ? COLOR_GRID_INTENS : COLOR_GRID));
        gw->polyline(2, alongV, nullptr, false, nullptr);
        gw->setColor(LINE_COLOR,
                     GetUIColor(std::fabs(b) < 0.5f * spacing ? COLOR_GRID_INTENS : COLOR_GRID));
        gw->polyline(2, alongU, nullptr, false, nullptr);
    }
}

}  // namespace

Box3 SceneBounds(Interface& ip, TimeValue t) {
    Box3 bounds;
    ForEachShown(ip.GetRootNode(), t, [&](INode* node, Object* object) {
        Box3 box;
        object->GetWorldBoundBox(t, node, nullptr, box);
        if (!box.IsEmpty()) bounds += box;
    });
    return bounds;
}

void DrawScene(Interface& ip, Viewport& view, TimeValue t, bool grid) {
    GraphicsWindow* gw = view.getGW();
    if (!gw) return;
    gw->setColor(CLEAR_COLOR, GetUIColor(COLOR_VIEWPORT_BKG));
    gw->clearScreen();
    if (grid) DrawGrid(view);
    ForEachShown(ip.GetRootNode(), t, [&](INode* node, Object* object) {
        object->Display(t, node, &view, 0);
        if (Control* tmc = node->GetTMController()) tmc->Display(t, node, &view, 0);
    });
}

INode* HitTestScene(Interface& ip, Viewport& view, TimeValue t, IPoint2 p) {
    view.ClearHitList();
    GraphicsWindow* gw = view.getGW();
    if (!gw) return nullptr;
    ForEachShown(ip.GetRootNode(), t, [&](INode* node, Object* object) {
        if (node->IsFrozen()) return;
        if (object->HitTest(t, node, HITTYPE_POINT, 0, 0, &p, &view))
            view.LogHit(node, nullptr, gw->getHitDistance(), 0, gw->getHitDepth());
    });
    const HitRecord* closest = view.GetClosestHit();
    return closest ? closest->nodeRef : nullptr;
}

}  // namespace host
