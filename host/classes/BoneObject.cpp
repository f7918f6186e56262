#include "host/classes/BoneObject.h"

#include <algorithm>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/Interface.h"
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

Point3 BoneObject::Corner(int i, TimeValue t) {
    const bool tip = i & 1;
    // The tip keeps (100 - taper) percent of the section.
    const float section = tip ? std::clamp(1.0f - Float(TAPER, t) / 100.0f, 0.0f, 1.0f) : 1.0f;
    const float y = 0.5f * Float(WIDTH, t) * section * ((i & 2) ? 1.0f : -1.0f);
    const float z = 0.5f * Float(HEIGHT, t) * section * ((i & 4) ? 1.0f : -1.0f);
    return {tip ? Float(LENGTH, t) : 0.0f, y, z};
}

Point3 BoneObject::GetPoint(int i) {
    return i >= 0 && i < 8 ? Corner(i, GetCOREInterface()->GetTime()) : Point3();
}

void BoneObject::GetLocalBoundBox(TimeValue t, INode*, ViewExp*, Box3& box) {
    box.Init();
    for (int i = 0; i < 8; ++i) box += Corner(i, t);
    // Fins stand out of the middle of the sides, the top and the bottom.
    const float halfWidth = 0.5f * Float(WIDTH, t), halfHeight = 0.5f * Float(HEIGHT, t);
    if (Bool(SIDE_FINS, t)) {
        box += Point3(0, halfWidth + Float(SIDE_FINS_SIZE, t), 0);
        box += Point3(0, -halfWidth - Float(SIDE_FINS_SIZE, t), 0);
    }
    if (Bool(FRONT_FIN, t)) box += Point3(0, 0, halfHeight + Float(FRONT_FIN_SIZE, t));
    if (Bool(BACK_FIN, t)) box += Point3(0, 0, -halfHeight - Float(BACK_FIN_SIZE, t));
}

}  // namespace host
