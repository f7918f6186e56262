#pragma once

#include "host/classes/BlockObject.h"
#include "host/object/GeomObject.h"
#include "host/object/HostClassIds.h"

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

    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;
    int NumPoints() override { return 8; }
    // Corner i: bit 0 the end (0 pivot, 1 tip), bit 1 the side (+Y), bit 2 the top (+Z).
    Point3 GetPoint(int i) override;

private:
    Point3 Corner(int i, TimeValue t);
};

}  // namespace host
