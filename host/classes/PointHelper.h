#pragma once

#include "host/classes/BlockObject.h"
#include "host/object/HelperObject.h"
#include "host/object/HostClassIds.h"
#include "host/object/WireOutline.h"

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

    // The switched-on parts in the node's wire colour; the axis tripod in red, green
    // and blue; the centre marker as a marker at the pivot.
    int Display(TimeValue t, INode* node, ViewExp* vpt, int flags) override;
    int HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                ViewExp* vpt) override;
    // A cube of the displayed size about the pivot.
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;

    // The size the helper is drawn at in object units: the size, or with a constant
    // screen size that many pixels of the view at the node (the size itself without a
    // live view).
    float DisplaySize(TimeValue t, INode* node, ViewExp* vpt);
    // The lines at t in object space: the cross (three axis lines through the pivot,
    // size long), the box (a cube of the size) and the axis tripod (from the pivot half
    // the size along +X, +Y and +Z).
    WireOutline Outline(TimeValue t, INode* node, ViewExp* vpt);
};

}  // namespace host
