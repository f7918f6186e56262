#include "host/classes/PointHelper.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/ViewExp.h"

namespace host {

ClassDesc2* GetPointHelperDesc() {
    static HostClassDesc<PointHelper> desc(L"Point", L"point", HELPER_CLASS_ID,
                                           POINT_HELPER_CLASS_ID);
    static ParamBlockDesc2 block(
        0, L"pointobj", P_AUTO_CONSTRUCT, 0, &desc,
        {
            {PointHelper::SIZE, L"size", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 20.0f}},
            {PointHelper::CENTER_MARKER, L"centermarker", TYPE_BOOL, 0, 0, {.i = 0}},
            {PointHelper::AXIS_TRIPOD, L"axistripod", TYPE_BOOL, 0, 0, {.i = 0}},
            {PointHelper::CROSS, L"cross", TYPE_BOOL, 0, 0, {.i = 1}},
            {PointHelper::BOX, L"box", TYPE_BOOL, 0, 0, {.i = 0}},
            {PointHelper::SCREEN_SIZE, L"constantscreensize", TYPE_BOOL, 0, 0, {.i = 0}},
            {PointHelper::DRAW_ON_TOP, L"drawontop", TYPE_BOOL, 0, 0, {.i = 0}},
        });
    return &desc;
}

PointHelper::PointHelper(bool loading) : BlockObject(GetPointHelperDesc(), loading) {}

namespace {

// The colours of the tripod's X, Y and Z axes.
constexpr Point3 kAxisColors[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0.4f, 1}};

}  // namespace

float PointHelper::DisplaySize(TimeValue t, INode* node, ViewExp* vpt) {
    const float size = Float(SIZE, t);
    if (!Bool(SCREEN_SIZE, t) || !vpt || !vpt->IsAlive() || !node || vpt->GetViewportWidth() <= 0)
        return size;
    const Point3 where = node->GetObjectTM(t).GetTrans();
    return size * vpt->GetVPWorldWidth(where) / float(vpt->GetViewportWidth());
}

WireOutline PointHelper::Outline(TimeValue t, INode* node, ViewExp* vpt) {
    const float half = 0.5f * DisplaySize(t, node, vpt);
    const Point3 axes[3] = {Point3::XAxis * half, Point3::YAxis * half, Point3::ZAxis * half};
    WireOutline outline;
    if (Bool(CROSS, t))
        for (const Point3& axis : axes) outline.AddSegment(-axis, axis);
    if (Bool(BOX, t)) {
        const Box3 cube(Point3(-half, -half, -half), Point3(half, half, half));
        // Corner i of the cube: bit 0 x, bit 1 y, bit 2 z.
        outline.AddLine({cube[0], cube[1], cube[3], cube[2]}, true);
        outline.AddLine({cube[4], cube[5], cube[7], cube[6]}, true);
        for (int i = 0; i < 4; ++i) outline.AddSegment(cube[i], cube[i + 4]);
    }
    if (Bool(AXIS_TRIPOD, t))
        for (int i = 0; i < 3; ++i)
            outline.AddColoredLine({Point3::Origin, axes[i]}, kAxisColors[i]);
    return outline;
}

int PointHelper::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    GraphicsWindow* gw = BeginNodeDisplay(t, node, vpt);
    if (!gw) return 0;
    const uint32_t limits = gw->getRndLimits();
    if (Bool(DRAW_ON_TOP, t)) gw->setRndLimits(limits & ~GW_Z_BUFFER);
    Outline(t, node, vpt).Draw(gw);
    if (Bool(CENTER_MARKER, t)) gw->marker(&Point3::Origin, X_MRKR);
    gw->setRndLimits(limits);
    return 1;
}

int PointHelper::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                         ViewExp* vpt) {
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

void PointHelper::GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    const float half = 0.5f * DisplaySize(t, node, vpt);
    box = Box3(Point3(-half, -half, -half), Point3(half, half, half));
}

}  // namespace host
