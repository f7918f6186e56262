#include "host/classes/BoneObject.h"

#include <algorithm>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/Interface.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/ParamBlockDesc2.h"

namespace host {

ClassDesc2* GetBoneObjectDesc() {
    static HostClassDesc<BoneObject> desc(L"BoneGeometry", L"bone", GEOMOBJECT_CLASS_ID,
                                          BONE_OBJECT_CLASS_ID, false);
    static ParamBlockDesc2 block(
        0, L"bone", P_AUTO_CONSTRUCT, 0, &desc,
        {
            {BoneObject::WIDTH, L"width", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 10.0f}},
            {BoneObject::HEIGHT, L"height", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 10.0f}},
            {BoneObject::TAPER, L"taper", TYPE_FLOAT, P_ANIMATABLE, 0, {.f = 90.0f}},
            {BoneObject::LENGTH, L"length", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 100.0f}},
            {BoneObject::SIDE_FINS, L"sidefins", TYPE_BOOL, 0, 0, {.i = 0}},
            {BoneObject::SIDE_FINS_SIZE,
             L"sidefinssize",
             TYPE_WORLD,
             P_ANIMATABLE,
             0,
             {.f = 10.0f}},
            {BoneObject::SIDE_FINS_START_TAPER,
             L"sidefinsstarttaper",
             TYPE_FLOAT,
             0,
             0,
             {.f = 10.0f}},
            {BoneObject::SIDE_FINS_END_TAPER, L"sidefinsendtaper", TYPE_FLOAT, 0, 0, {.f = 10.0f}},
            {BoneObject::FRONT_FIN, L"frontfin", TYPE_BOOL, 0, 0, {.i = 0}},
            {BoneObject::FRONT_FIN_SIZE,
             L"frontfinsize",
             TYPE_WORLD,
             P_ANIMATABLE,
             0,
             {.f = 10.0f}},
            {BoneObject::FRONT_FIN_START_TAPER,
             L"frontfinstarttaper",
             TYPE_FLOAT,
             0,
             0,
             {.f = 10.0f}},
            {BoneObject::FRONT_FIN_END_TAPER, L"frontfinendtaper", TYPE_FLOAT, 0, 0, {.f = 10.0f}},
            {BoneObject::BACK_FIN, L"backfin", TYPE_BOOL, 0, 0, {.i = 0}},
            {BoneObject::BACK_FIN_SIZE, L"backfinsize", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 10.0f}},
            {BoneObject::BACK_FIN_START_TAPER,
             L"backfinstarttaper",
             TYPE_FLOAT,
             0,
             0,
             {.f = 10.0f}},
            {BoneObject::BACK_FIN_END_TAPER, L"backfinendtaper", TYPE_FLOAT, 0, 0, {.f = 10.0f}},
            {BoneObject::GEN_MAP, L"genmap", TYPE_BOOL, 0, 0, {.i = 0}},
        });
    return &desc;
}

BoneObject::BoneObject(bool loading) : BlockObject(GetBoneObjectDesc(), loading) {}

float BoneObject::TipSection(TimeValue t) {
    // The tip keeps (100 - taper) percent of the section.
    return std::clamp(1.0f - Float(TAPER, t) / 100.0f, 0.0f, 1.0f);
}

Point3 BoneObject::Corner(int i, TimeValue t) {
    const bool tip = i & 1;
    const float section = tip ? TipSection(t) : 1.0f;
    const float y = 0.5f * Float(WIDTH, t) * section * ((i & 2) ? 1.0f : -1.0f);
    const float z = 0.5f * Float(HEIGHT, t) * section * ((i & 4) ? 1.0f : -1.0f);
    return {tip ? Float(LENGTH, t) : 0.0f, y, z};
}

Point3 BoneObject::GetPoint(int i) {
    return i >= 0 && i < 8 ? Corner(i, GetCOREInterface()->GetTime()) : Point3();
}

void BoneObject::AddFin(WireOutline& outline, TimeValue t, const Point3& out, float halfSection,
                        ParamID size, ParamID startTaper, ParamID endTaper) {
    const float length = Float(LENGTH, t);
    const float tipSection = TipSection(t);
    // The surface's distance from the axis at x, as the section narrows linearly.
    auto surface = [&](float x) {
        const float u = length != 0.0f ? x / length : 0.0f;
        return halfSection * (1.0f + (tipSection - 1.0f) * u);
    };
    const float x0 = length * Float(startTaper, t) / 100.0f;
    const float x1 = length * (1.0f - Float(endTaper, t) / 100.0f);
    const float height = Float(size, t);
    outline.AddLine({out * surface(0.0f), Point3(x0, 0, 0) + out * (surface(x0) + height),
                     Point3(x1, 0, 0) + out * (surface(x1) + height),
                     Point3(length, 0, 0) + out * surface(length)},
                    true);
}

WireOutline BoneObject::Outline(TimeValue t) {
    WireOutline outline;
    Point3 c[8];
    for (int i = 0; i < 8; ++i) c[i] = Corner(i, t);
    outline.AddLine({c[0], c[2], c[6], c[4]}, true);
    outline.AddLine({c[1], c[3], c[7], c[5]}, true);
    for (int i = 0; i < 8; i += 2) outline.AddSegment(c[i], c[i + 1]);
    const float halfWidth = 0.5f * Float(WIDTH, t), halfHeight = 0.5f * Float(HEIGHT, t);
    if (Bool(SIDE_FINS, t)) {
        AddFin(outline, t, Point3::YAxis, halfWidth, SIDE_FINS_SIZE, SIDE_FINS_START_TAPER,
               SIDE_FINS_END_TAPER);
        AddFin(outline, t, -Point3::YAxis, halfWidth, SIDE_FINS_SIZE, SIDE_FINS_START_TAPER,
               SIDE_FINS_END_TAPER);
    }
    if (Bool(FRONT_FIN, t))
        AddFin(outline, t, Point3::ZAxis, halfHeight, FRONT_FIN_SIZE, FRONT_FIN_START_TAPER,
               FRONT_FIN_END_TAPER);
    if (Bool(BACK_FIN, t))
        AddFin(outline, t, -Point3::ZAxis, halfHeight, BACK_FIN_SIZE, BACK_FIN_START_TAPER,
               BACK_FIN_END_TAPER);
    return outline;
}

int BoneObject::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    GraphicsWindow* gw = BeginNodeDisplay(t, node, vpt);
    if (!gw) return 0;
    Outline(t).Draw(gw);
    return 1;
}

int BoneObject::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                        ViewExp* vpt) {
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

void BoneObject::GetLocalBoundBox(TimeValue t, INode*, ViewExp*, Box3& box) {
    box = Outline(t).BoundingBox();
}

}  // namespace host
