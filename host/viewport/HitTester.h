#pragma once

#include <cstdint>

#include "host/math/Point3.h"
#include "host/object/HitRegion.h"

namespace host {

// Tests what a graphics window draws against a hit region, in window space (x, y
// pixels, z depth), and keeps the result of the primitives tested since the last
// Clear. Both graphics window back-ends use it: picking is the same whatever draws.
class HitTester {
public:
    void SetRegion(const HitRegion& region) { region_ = region; }
    const HitRegion& Region() const { return region_; }
    void Clear();

    void TestPoint(const Point3& p);
    void TestSegment(const Point3& a, const Point3& b);
    // A filled triangle: its edges, and for a point region its inside too.
    void TestTriangle(const Point3& a, const Point3& b, const Point3& c);

    // With crossing: whether anything touched the region; without: whether something
    // touched it and nothing lay outside it.
    bool Hit() const;
    // The pixel distance of the nearest touching primitive from a point region's point
    // (0 for the other regions), and its depth there.
    uint32_t Distance() const;
    float Depth() const { return depth_; }

private:
    // One primitive's result: whether it touched the region, whether it lies inside all
    // of it, and how far and how deep its nearest touching part is.
    struct Contact {
        bool touches = false;
        bool inside = false;
        float distance = 0.0f;
        float depth = 0.0f;
    };
    Contact SegmentContact(const Point3& a, const Point3& b) const;
    void Record(const Contact& c);

    HitRegion region_;
    bool touched_ = false;
    bool outside_ = false;
    float distance_ = 0.0f;
    float depth_ = 0.0f;
};

}  // namespace host
