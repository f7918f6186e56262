// The rig object in the viewports: the stick figure of its guide points, picking of the
// figure and of single points, its boxes, and its placement by one click.
#include <algorithm>

#include "host/object/GraphicsWindow.h"
#include "host/object/HitRegion.h"
#include "host/object/INode.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/ViewExp.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

// The markers: a built rig shows only a small box at its origin, to be picked by.
constexpr MarkerType kPointMarker = HOLLOW_BOX_MRKR;
constexpr MarkerType kSelectedMarker = BIG_BOX_MRKR;
constexpr MarkerType kFixedMarker = X_MRKR;
constexpr MarkerType kBuiltMarker = SM_HOLLOW_BOX_MRKR;

// A point's side in the colour table of DrawFigure: right, centre or left.
int SideSlot(const RigPoint& p) {
    if (p.flags & kPointRight) return 0;
    if (p.flags & kPointLeft) return 2;
    return 1;
}

// One click places the rig: the clicked point on the construction plane becomes the
// node's position, and creation ends.
class RigCreateCallBack : public CreateMouseCallBack {
public:
    int proc(ViewExp* vpt, int msg, int, int, IPoint2 m, Matrix3& mat) override {
        if (!vpt || !vpt->IsAlive() || msg == MOUSE_ABORT) return CREATE_ABORT;
        mat = TransMatrix(vpt->GetPointOnCP(m));
        return msg == MOUSE_POINT ? CREATE_STOP : CREATE_CONTINUE;
    }
};

}  // namespace

CreateMouseCallBack* RigSystem::GetCreateMouseCallBack() {
    static RigCreateCallBack callBack;
    return &callBack;
}

void RigSystem::RebuildDrawLists() {
    drawOrder.resize(points.size());
    for (size_t i = 0; i < points.size(); ++i) drawOrder[i] = int(i);
    // Selected points last, so that their highlight lies on top of their neighbours.
    auto rank = [this](int i) {
        const RigPoint& p = points[size_t(i)];
        return p.Fixed() ? 0 : p.selected ? 2 : 1;
    };
    std::stable_sort(drawOrder.begin(), drawOrder.end(),
                     [&](int a, int b) { return rank(a) < rank(b); });
}

void RigSystem::DrawFigure(GraphicsWindow* gw, TimeValue t, INode* node) {
    const float size = HelperSize();
    // A selected node shows as a whole in the selection colour, unless its points are
    // being edited.
    const bool wholeSelected = node->Selected() && subObjLevel != kPointLevel;
    const Point3 selectionColor = GetUIColor(COLOR_SELECTION);
    // The main rig colour of each side, read once for the whole figure.
    Point3 sideColors[3];
    const ParamID sideParams[3] = {RIG_COLOR_2, RIG_COLOR_4, RIG_COLOR_6};
    for (int side = 0; side < 3; ++side)
        sideColors[side] = wholeSelected ? selectionColor : pblock_->GetColor(sideParams[side], t);
    for (const RigPoint& p : points) {
        if (p.parent < 0 || size_t(p.parent) >= points.size()) continue;
        const Point3 link[2] = {points[size_t(p.parent)].pos * size, p.pos * size};
        gw->setColor(LINE_COLOR, sideColors[SideSlot(p)]);
        gw->polyline(2, link, nullptr, 0, nullptr);
    }
    for (int i : drawOrder) {
        const RigPoint& p = points[size_t(i)];
        const Point3 at = p.pos * size;
        if (p.Fixed()) {
            gw->setColor(MARKER_COLOR, GetUIColor(COLOR_FREEZE));
            gw->marker(&at, kFixedMarker);
        } else if (p.selected) {
            gw->setColor(MARKER_COLOR, GetUIColor(COLOR_SUBSELECTION));
            gw->marker(&at, kSelectedMarker);
        } else {
            gw->setColor(MARKER_COLOR, sideColors[SideSlot(p)]);
            gw->marker(&at, kPointMarker);
        }
    }
}

int RigSystem::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    GraphicsWindow* gw = pblock_ ? BeginNodeDisplay(t, node, vpt) : nullptr;
    if (!gw) return 0;
    const uint32_t limits = gw->getRndLimits();
    if (pblock_->GetInt(RIG_DRAW_ON_TOP, t)) gw->setRndLimits(limits & ~GW_Z_BUFFER);
    if (Active())
        DrawFigure(gw, t, node);
    else
        gw->marker(&Point3::Origin, kBuiltMarker);
    gw->setRndLimits(limits);
    return 1;
}

int RigSystem::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                       ViewExp* vpt) {
    if (!pblock_) return 0;
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

int RigSystem::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                       ViewExp* vpt, ModContext* mc) {
    if (!pblock_ || !node || !p || !vpt || !vpt->IsAlive()) return 0;
    if (subObjLevel != kPointLevel || !Active()) return 0;
    GraphicsWindow* gw = vpt->getGW();
    HitRegion region;
    MakeHitRegion(region, type, crossing, 4, p);
    const uint32_t limits = gw->getRndLimits();
    gw->setRndLimits(limits | GW_PICK);
    gw->setHitRegion(&region);
    gw->setTransform(node->GetObjectTM(t));
    const float size = HelperSize();
    bool hit = false;
    for (size_t i = 0; i < points.size(); ++i) {
        const RigPoint& point = points[i];
        if (point.Fixed()) continue;
        if ((flags & HIT_SELONLY) && !point.selected) continue;
        if ((flags & HIT_UNSELONLY) && point.selected) continue;
        const Point3 at = point.pos * size;
        gw->clearHitCode();
        gw->marker(&at, kPointMarker);
        if (!gw->checkHitCode()) continue;
        vpt->LogHit(node, mc, gw->getHitDistance(), uint32_t(i), gw->getHitDepth());
        hit = true;
        if (flags & HIT_ABORTONHIT) break;
    }
    gw->setRndLimits(limits);
    return hit ? 1 : 0;
}

void RigSystem::GetLocalBoundBox(TimeValue t, INode*, ViewExp*, Box3& box) {
    box.Init();
    if (!pblock_) return;
    if (Active()) {
        UpdateBounds(t);
        box = bounds;
    }
    // The origin is always drawn or pointed at: a built rig's marker, an empty figure.
    if (box.IsEmpty()) box += Point3::Origin;
}

void RigSystem::GetWorldBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    GetLocalBoundBox(t, node, vpt, box);
    if (node && !box.IsEmpty()) box = box * node->GetObjectTM(t);
}

}  // namespace zorvanta
