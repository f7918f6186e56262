#include "host/classes/PointHelper.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/ParamBlockDesc2.h"

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

void PointHelper::GetLocalBoundBox(TimeValue t, INode*, ViewExp*, Box3& box) {
    const float half = 0.5f * Float(SIZE, t);
    box = Box3(Point3(-half, -half, -half), Point3(half, half, half));
}

}  // namespace host
