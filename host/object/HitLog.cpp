#include "host/object/HitLog.h"

namespace host {

const HitRecord* HitLog::ClosestHit() const {
    const HitRecord* best = nullptr;
    for (const HitRecord& hit : hits_)
        if (!best || hit.distance < best->distance ||
            (hit.distance == best->distance && hit.depth < best->depth))
            best = &hit;
    return best;
}

}  // namespace host
