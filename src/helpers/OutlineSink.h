#pragma once

#include "helpers/ShapeSink.h"
#include "host/object/WireOutline.h"

namespace zorvanta {

// The drawing form: every curve becomes one line of a WireOutline, Bezier segments
// sampled at steps + 1 chords each, straight segments as their two ends (cut into
// steps + 1 chords as well while a bend is on, so that the bend shows).
class OutlineSink : public ShapeSink {
public:
    OutlineSink(host::WireOutline& out, int steps, const host::Point3& target)
        : ShapeSink(target), out_(out), steps_(steps) {}

    bool Drawing() const override { return true; }
    void Polyline(std::vector<host::Point3> points, bool closed) override;
    void Curve(std::span<const host::SplineKnot> knots, bool closed) override;

private:
    // Chords of a segment: one when straight and unbent.
    int Chords(bool straight) const { return straight && !map_.bend ? 1 : steps_ + 1; }

    host::WireOutline& out_;
    int steps_;
};

}  // namespace zorvanta
