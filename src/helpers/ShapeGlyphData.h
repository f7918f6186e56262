#pragma once

#include <span>

// The drawn glyphs as tables: Bezier knots in the unit square -0.5 to 0.5 (X right,
// Y up), handles as absolute positions, grouped into splines.
namespace zorvanta::shapes {

struct GlyphKnot {
    float point[2];
    float in[2];
    float out[2];
};

struct GlyphSpline {
    int first;  // index of the spline's first knot in the glyph's knot table
    int count;
    bool closed;
};

struct Glyph {
    std::span<const GlyphKnot> knots;
    std::span<const GlyphSpline> splines;
};

extern const Glyph kCharacterGlyph;  // a standing figure: head, body with arms and legs
extern const Glyph kEyeGlyph;        // the lids' almond and the iris
extern const Glyph kLipsGlyph;
extern const Glyph kHandGlyph;  // an open hand, fingers up, thumb out to the left
extern const Glyph kFootGlyph;  // a footprint: the sole and five toes
extern const Glyph kShoeGlyph;  // from the side, toe to the right: the upper and the sole
extern const Glyph kFaceGlyph;  // the head's outline, two eyes, a smile
extern const Glyph kNoseGlyph;  // from the front: the bridge's sides and both nostrils
extern const Glyph kIKFKGlyph;  // the letters I K F K as straight strokes

}  // namespace zorvanta::shapes
