#pragma once

#include <vector>

#include "host/object/GraphicsConstants.h"
#include "host/object/IPoint2.h"

namespace host {

// The list of fence points ends with this point.
inline constexpr IPoint2 FENCE_END{-100, -100};

// Where a hit test looks, in window pixels. With crossing, a primitive that touches the
// region hits; without it (window selection), an object hits only when all of what it
// draws lies inside.
struct HitRegion {
    int type = POINT_RGN;
    int crossing = 1;
    int epsilon = 4;  // pixels of tolerance around a point region
    IPoint2 pt;       // the point of a point region, the centre of a circle region
    int radius = 0;   // of a circle region
    IPoint2 rectMin;  // the corners of a rectangle region, min <= max on both axes
    IPoint2 rectMax;
    std::vector<IPoint2> fence;  // the polygon of a fence region, without FENCE_END
};

// Fills hr for a hit test of the given type (HITTYPE_...) from the points the viewport
// passed: one point for a point test, two opposite corners for a box, the centre and a
// point of the rim for a circle, and for a fence the polygon's points up to FENCE_END.
void MakeHitRegion(HitRegion& hr, int type, int crossing, int epsilon, const IPoint2* p);

}  // namespace host
