#pragma once

#include "host/classes/BlockObject.h"
#include "host/object/GeomObject.h"
#include "host/object/HostClassIds.h"
#include "host/object/WireOutline.h"

namespace host {

// The bone object: a box along the node's X axis from the pivot to length, width wide
// (Y) and height high (Z), narrowing towards its end by taper percent, with optional
// fins on the sides (Y), the front (+Z) and the back (-Z), each standing out by
// its size. It is display geometry only: its eight box corners are its points.
class BoneObject : public BlockObject<GeomObject> {
public:
    enum Param : ParamID {
        WIDTH = 0,
        HEIGHT = 1,
        TAPER = 2,
        LENGTH = 3,
        SIDE_FINS = 4,
        SIDE_FINS_SIZE = 5,
        SIDE_FINS_START_TAPER = 6,
        SIDE_FINS_END_TAPER = 7,
        FRONT_FIN = 8,
        FRONT_FIN_SIZE = 9,
        FRONT_FIN_START_TAPER = 10,
        FRONT_FIN_END_TAPER = 11,
        BACK_FIN = 12,
        BACK_FIN_SIZE = 13,
        BACK_FIN_START_TAPER = 14,
        BACK_FIN_END_TAPER = 15,
        GEN_MAP = 16,
    };

    explicit BoneObject(bool loading = false);
    Class_ID ClassID() override { return BONE_OBJECT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"BoneGeometry"); }

    // The box's edges and the fins as a wireframe in the node's wire colour.
    int Display(TimeValue t, INode* node, ViewExp* vpt, int flags) override;
    int HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                ViewExp* vpt) override;
    // The box of the wireframe.
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;
    // The wireframe at t in object space: the section at the pivot and at the tip, the
    // four long edges, and each fin that is on as a closed outline.
    WireOutline Outline(TimeValue t);
    int NumPoints() override { return 8; }
    // Corner i: bit 0 the end (0 pivot, 1 tip), bit 1 the side (+Y), bit 2 the top (+Z).
    Point3 GetPoint(int i) override;

private:
    Point3 Corner(int i, TimeValue t);
    // The share of the section that the tip keeps, 0 to 1.
    float TipSection(TimeValue t);
    // A fin standing out from the middle of a side along `out` (a unit axis): its base
    // runs the bone's length on the surface, its outer edge is size further out between
    // startTaper percent of the length from the pivot and endTaper percent from the tip.
    void AddFin(WireOutline& outline, TimeValue t, const Point3& out, float halfSection,
                ParamID size, ParamID startTaper, ParamID endTaper);
};

}  // namespace host
