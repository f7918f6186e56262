#include "host/classes/TextShape.h"

#include <cwctype>

#include "host/classes/HostClasses.h"
#include "host/classes/SimpleSplineDesc.h"
#include "host/object/ParamBlockDesc2.h"

namespace host {

namespace {

// One closed rectangle of corner knots, counter-clockwise from its lower left corner.
void AddBox(BezierShape& shape, const Point3& corner, float width, float height) {
    Spline3D* spline = shape.NewSpline();
    const Point3 corners[4] = {corner, corner + Point3(width, 0, 0),
                               corner + Point3(width, height, 0), corner + Point3(0, height, 0)};
    for (const Point3& p : corners) spline->AddKnot(SplineKnot(KTYPE_CORNER, LTYPE_LINE, p, p, p));
    spline->SetClosed();
    spline->ComputeBezPoints();
}

}  // namespace

ClassDesc2* GetTextShapeDesc() {
    static SimpleSplineDesc<TextShape> desc(L"Text", L"text", TEXT_SHAPE_CLASS_ID);
    static ParamBlockDesc2 block(
        TextShape::TEXT_BLOCK_ID, L"text", P_AUTO_CONSTRUCT, SimpleSpline::PBLOCK_REF, &desc,
        {
            {TextShape::TEXT, L"text", TYPE_STRING, 0, 0, {.s = L"Text"}},
            {TextShape::FONT, L"font", TYPE_STRING, 0, 0, {.s = L"Arial"}},
            {TextShape::SIZE,
             L"size",
             TYPE_WORLD,
             P_ANIMATABLE,
             0,
             {.f = 100.0f},
             std::pair{0.0f, 1e30f}},
            {TextShape::KERNING, L"kerning", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 0.0f}},
            {TextShape::LEADING, L"leading", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 0.0f}},
        });
    return &desc;
}

TextShape::TextShape(bool loading) : SimpleSpline(GetTextShapeDesc(), loading) {}

float TextShape::ReadFloat(ParamID id, TimeValue t) {
    PB2Value v;
    pblock2->GetValue(id, t, v, ivalid);
    return v.f;
}

void TextShape::BuildShape(TimeValue t, BezierShape& out) {
    out.NewShape();
    if (!pblock2) return;
    const float size = ReadFloat(SIZE, t);
    const float advance = kBoxWidth * size + ReadFloat(KERNING, t);
    const float lineStep = size + ReadFloat(LEADING, t);
    const WStr text = pblock2->GetStr(TEXT, t);
    Point3 pen;  // lower left corner of the next character box
    for (const wchar_t c : text.str()) {
        if (c == L'\n') {
            pen = Point3(0, pen.y - lineStep, 0);
            continue;
        }
        if (!std::iswspace(wint_t(c))) AddBox(out, pen, kBoxWidth * size, size);
        pen.x += advance;
    }
}

}  // namespace host
