#pragma once

#include "helpers/ShapeCatalogue.h"

namespace zorvanta {

// The numbers a member reads, worked out once from the inputs: half extents by the
// member's own rule (size alone, or size / length, width, height by uniform), the
// clamped thickness and the point counts of the drawing form.
struct ShapeContext {
    const ShapeInputs& in;
    float hx = 0.0f;  // half extents, world units: X along width, Y along length, Z height
    float hy = 0.0f;
    float hz = 0.0f;
    float hm = 0.0f;  // mean of hx and hy: the depth scale of flat round outlines
    float t = 0.0f;   // thickness, a fraction from 0 to 1
    float c = 0.0f;   // corner radius, world units
    float w = 0.0f;   // warp amount, a fraction from -1 to 1
    int steps = 0;    // at least 0

    // Points of a full circle in the drawing form: steps + 1 segments a quarter.
    int RingPoints() const { return steps * 4 + 4; }
};

}  // namespace zorvanta
