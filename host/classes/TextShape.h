#pragma once

#include "host/classes/SimpleSpline.h"
#include "host/object/HostClassIds.h"

namespace host {

// A line of text as a shape. Each character that is not white space becomes one
// closed rectangle of four corner knots, its character box: 0.6 * size wide and size
// high, with its lower left corner on the pen. The pen starts at the origin and moves
// right by the box width plus kerning for every character (white space included); a
// newline takes it back to x = 0 and down by size + leading. All in object space,
// world units. The font name is kept for whoever draws glyphs; the boxes do not
// depend on it.
class TextShape : public SimpleSpline {
public:
    // Parameters of the text block (reference 2).
    enum Param : ParamID {
        TEXT = 0,     // string, default "Text"
        FONT = 1,     // string, default "Arial"
        SIZE = 2,     // world units, animatable, default 100
        KERNING = 3,  // world units between character boxes, animatable, default 0
        LEADING = 4,  // world units between lines, animatable, default 0
    };
    static constexpr BlockID TEXT_BLOCK_ID = 0;
    // The character box's width as a fraction of the size.
    static constexpr float kBoxWidth = 0.6f;

    explicit TextShape(bool loading = false);
    Class_ID ClassID() override { return TEXT_SHAPE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Text"); }

    void BuildShape(TimeValue t, BezierShape& shape) override;

private:
    // A float parameter at t, narrowing ivalid by its validity.
    float ReadFloat(ParamID id, TimeValue t);
};

}  // namespace host
