#include "host/viewport/HitTester.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace host {

namespace {

struct Vec2 {
    float x, y;
};

Vec2 Sub(Vec2 a, Vec2 b) {
    return {a.x - b.x, a.y - b.y};
}
float Cross(Vec2 a, Vec2 b) {
    return a.x * b.y - a.y * b.x;
}
Vec2 Flat(const Point3& p) {
    return {p.x, p.y};
}
Vec2 Flat(const IPoint2& p) {
    return {float(p.x), float(p.y)};
}

// The parameter (0 to 1) of the point of segment ab nearest to p.
float NearestParam(Vec2 p, Vec2 a, Vec2 b) {
    const Vec2 ab = Sub(b, a), ap = Sub(p, a);
    const float len2 = ab.x * ab.x + ab.y * ab.y;
    if (len2 == 0.0f) return 0.0f;
    return std::clamp((ap.x * ab.x + ap.y * ab.y) / len2, 0.0f, 1.0f);
}

float PixelDistance(Vec2 a, Vec2 b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

Vec2 Lerp(Vec2 a, Vec2 b, float u) {
    return {a.x + (b.x - a.x) * u, a.y + (b.y - a.y) * u};
}

// Whether segments ab and cd share a point (collinear overlaps included).
bool SegmentsMeet(Vec2 a, Vec2 b, Vec2 c, Vec2 d) {
    const float d1 = Cross(Sub(b, a), Sub(c, a)), d2 = Cross(Sub(b, a), Sub(d, a));
    const float d3 = Cross(Sub(d, c), Sub(a, c)), d4 = Cross(Sub(d, c), Sub(b, c));
    if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0)))
        return true;
    auto onSegment = [](Vec2 p, Vec2 q, Vec2 r) {  // r on pq, given collinear
        return std::min(p.x, q.x) <= r.x && r.x <= std::max(p.x, q.x) &&
               std::min(p.y, q.y) <= r.y && r.y <= std::max(p.y, q.y);
    };
    return (d1 == 0 && onSegment(a, b, c)) || (d2 == 0 && onSegment(a, b, d)) ||
           (d3 == 0 && onSegment(c, d, a)) || (d4 == 0 && onSegment(c, d, b));
}

// Even-odd rule.
bool InPolygon(Vec2 p, const std::vector<Vec2>& poly) {
    bool in = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const Vec2 a = poly[i], b = poly[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            in = !in;
    }
    return in;
}

bool CrossesPolygon(Vec2 a, Vec2 b, const std::vector<Vec2>& poly) {
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++)
        if (SegmentsMeet(a, b, poly[j], poly[i])) return true;
    return false;
}

std::vector<Vec2> RectPolygon(const HitRegion& r) {
    const float x0 = float(r.rectMin.x), y0 = float(r.rectMin.y);
    const float x1 = float(r.rectMax.x), y1 = float(r.rectMax.y);
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

bool InRect(Vec2 p, const HitRegion& r) {
    return p.x >= float(r.rectMin.x) && p.x <= float(r.rectMax.x) && p.y >= float(r.rectMin.y) &&
           p.y <= float(r.rectMax.y);
}

}  // namespace

void HitTester::Clear() {
    touched_ = outside_ = false;
    distance_ = depth_ = 0.0f;
}

HitTester::Contact HitTester::SegmentContact(const Point3& a3, const Point3& b3) const {
    const Vec2 a = Flat(a3), b = Flat(b3);
    Contact c;
    c.depth = std::min(a3.z, b3.z);
    switch (region_.type) {
        case POINT_RGN: {
            const Vec2 p = Flat(region_.pt);
            const float u = NearestParam(p, a, b);
            c.distance = PixelDistance(p, Lerp(a, b, u));
            c.depth = a3.z + (b3.z - a3.z) * u;
            c.touches = c.distance <= float(region_.epsilon);
            c.inside = c.touches;
            break;
        }
        case CIRCLE_RGN: {
            const Vec2 centre = Flat(region_.pt);
            const float r = float(region_.radius);
            c.touches = PixelDistance(centre, Lerp(a, b, NearestParam(centre, a, b))) <= r;
            c.inside = PixelDistance(centre, a) <= r && PixelDistance(centre, b) <= r;
            break;
        }
        case RECT_RGN: {
            c.inside = InRect(a, region_) && InRect(b, region_);
            c.touches = c.inside || InRect(a, region_) || InRect(b, region_) ||
                        CrossesPolygon(a, b, RectPolygon(region_));
            break;
        }
        case FENCE_RGN: {
            std::vector<Vec2> fence;
            for (const IPoint2& q : region_.fence) fence.push_back(Flat(q));
            if (fence.size() < 3) break;
            const bool crosses = CrossesPolygon(a, b, fence);
            const bool aIn = InPolygon(a, fence), bIn = InPolygon(b, fence);
            c.inside = aIn && bIn && !crosses;
            c.touches = aIn || bIn || crosses;
            break;
        }
        default:
            break;
    }
    return c;
}

void HitTester::Record(const Contact& c) {
    if (!c.inside) outside_ = true;
    if (!c.touches) return;
    const bool better =
        !touched_ || c.distance < distance_ || (c.distance == distance_ && c.depth < depth_);
    if (better) {
        distance_ = c.distance;
        depth_ = c.depth;
    }
    touched_ = true;
}

void HitTester::TestPoint(const Point3& p) {
    Record(SegmentContact(p, p));
}

void HitTester::TestSegment(const Point3& a, const Point3& b) {
    Record(SegmentContact(a, b));
}

void HitTester::TestTriangle(const Point3& a, const Point3& b, const Point3& c) {
    if (region_.type == POINT_RGN) {
        const std::vector<Vec2> tri = {Flat(a), Flat(b), Flat(c)};
        if (InPolygon(Flat(region_.pt), tri)) {
            Record({true, true, 0.0f, std::min({a.z, b.z, c.z})});
            return;
        }
    }
    TestSegment(a, b);
    TestSegment(b, c);
    TestSegment(c, a);
}

bool HitTester::Hit() const {
    if (region_.type == POINT_RGN || region_.crossing) return touched_;
    return touched_ && !outside_;
}

uint32_t HitTester::Distance() const {
    return region_.type == POINT_RGN ? uint32_t(std::lround(distance_)) : 0u;
}

}  // namespace host
