#pragma once

#include "host/classes/BlockObject.h"
#include "host/object/HelperObject.h"
#include "host/object/HostClassIds.h"

namespace host {

// The point helper: a marker with no geometry, drawn as a cross, a box, an axis tripod
// and a centre marker as its switches say, size units across (or that many pixels with
// a constant screen size).
class PointHelper : public BlockObject<HelperObject> {
public:
    enum Param : ParamID {
        SIZE = 0,
        CENTER_MARKER = 1,
        AXIS_TRIPOD = 2,
        CROSS = 3,
        BOX = 4,
        SCREEN_SIZE = 5,
        DRAW_ON_TOP = 6,
    };

    explicit PointHelper(bool loading = false);
    Class_ID ClassID() override { return POINT_HELPER_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Point"); }

    // A cube of the size about the pivot.
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;
};

}  // namespace host
