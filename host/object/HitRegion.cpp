#include "host/object/HitRegion.h"

#include <algorithm>
#include <cmath>

namespace host {

void MakeHitRegion(HitRegion& hr, int type, int crossing, int epsilon, const IPoint2* p) {
    hr = HitRegion();
    hr.crossing = crossing;
    hr.epsilon = epsilon;
    switch (type) {
        case HITTYPE_BOX:
            hr.type = RECT_RGN;
            hr.rectMin = {std::min(p[0].x, p[1].x), std::min(p[0].y, p[1].y)};
            hr.rectMax = {std::max(p[0].x, p[1].x), std::max(p[0].y, p[1].y)};
            break;
        case HITTYPE_CIRCLE:
            hr.type = CIRCLE_RGN;
            hr.pt = p[0];
            hr.radius =
                int(std::lround(std::hypot(double(p[1].x - p[0].x), double(p[1].y - p[0].y))));
            break;
        case HITTYPE_FENCE:
            hr.type = FENCE_RGN;
            for (const IPoint2* q = p; !(*q == FENCE_END); ++q) hr.fence.push_back(*q);
            break;
        default:  // a point, and a solid pick, which looks at one point as well
            hr.type = POINT_RGN;
            hr.pt = p[0];
            break;
    }
}

}  // namespace host
