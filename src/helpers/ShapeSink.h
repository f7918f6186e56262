#pragma once

#include <span>
#include <vector>

#include "helpers/ShapeWarps.h"
#include "host/classes/SplineKnot.h"

namespace zorvanta {

// Where a catalogue member puts its outline. The member describes its curves once, in
// its own space (unit half extents, or world units); the sink maps them through the
// PointMap and turns them into the form its caller wants: polylines to draw
// (OutlineSink) or Bezier splines to build (SplineSink). A member that draws a curve
// differently in the two forms (a circle is exact points when drawn, four knots when
// built) asks Drawing().
class ShapeSink {
public:
    // target: the node's position in the object's space, where the offset line starts.
    explicit ShapeSink(const host::Point3& target) : target_(target) {}
    virtual ~ShapeSink() = default;
    ShapeSink(const ShapeSink&) = delete;
    ShapeSink& operator=(const ShapeSink&) = delete;

    virtual bool Drawing() const = 0;
    // Straight lines through points.
    virtual void Polyline(std::vector<host::Point3> points, bool closed) = 0;
    // A Bezier curve; knots carry absolute handle positions.
    virtual void Curve(std::span<const host::SplineKnot> knots, bool closed) = 0;

    void SetMap(const PointMap& map) { map_ = map; }
    const PointMap& Map() const { return map_; }

    // A point the offset line may end on, in the member's space; the nearest to the
    // node's position wins, the first of equals.
    void Candidate(const host::Point3& p) { Consider(map_(p)); }
    // The object's origin as a candidate, which no warp moves.
    void OriginCandidate() { Consider(host::Point3::Origin); }
    bool HasCandidate() const { return hasCandidate_; }
    const host::Point3& NearestCandidate() const { return nearest_; }

protected:
    PointMap map_;

private:
    void Consider(const host::Point3& p);

    host::Point3 target_;
    host::Point3 nearest_;
    float nearestDistance_ = 1e30f;
    bool hasCandidate_ = false;
};

}  // namespace zorvanta
