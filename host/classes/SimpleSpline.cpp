#include "host/classes/SimpleSpline.h"

#include <cassert>

#include "host/object/ClassDesc2.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/RemapDir.h"
#include "host/object/WireOutline.h"

namespace host {

namespace {

[[maybe_unused]] bool ListsBlock(ClassDesc2* desc, const ParamBlockDesc2* block) {
    for (int i = 0; i < desc->NumParamBlockDescs(); ++i)
        if (desc->GetParamBlockDesc(i) == block) return true;
    return false;
}

}  // namespace

ParamBlockDesc2* SimpleSpline::GetInterpBlockDesc() {
    // Not tied to one class: each shape class's descriptor lists it.
    static ParamBlockDesc2 block(
        INTERP_BLOCK_ID, L"interpolation", P_AUTO_CONSTRUCT, INTERP_BLOCK_REF, nullptr,
        {
            {STEPS, L"steps", TYPE_INT, 0, 0, {.i = 6}, std::pair{0.0f, 100.0f}},
            {OPTIMIZE, L"optimize", TYPE_BOOL, 0, 0, {.i = 1}},
            {ADAPTIVE, L"adaptive", TYPE_BOOL, 0, 0, {.i = 0}},
        });
    return &block;
}

SimpleSpline::SimpleSpline(ClassDesc2* desc, bool loading) {
    assert(ListsBlock(desc, GetInterpBlockDesc()) && "a shape's descriptor lists the interp block");
    if (!loading) desc->MakeAutoParamBlocks(this);
}

void SimpleSpline::UpdateShape(TimeValue t) {
    if (ivalid.InInterval(t)) return;
    ivalid = FOREVER;
    BuildShape(t, shape);
    ApplyInterpolation(t, shape);
    shape.UpdateSels();
    shape.InvalidateGeomCache();
}

void SimpleSpline::ApplyInterpolation(TimeValue t, BezierShape& target) {
    if (!ipblock) return;
    PB2Value steps, optimize, adaptive;
    ipblock->GetValue(STEPS, t, steps, ivalid);
    ipblock->GetValue(OPTIMIZE, t, optimize, ivalid);
    ipblock->GetValue(ADAPTIVE, t, adaptive, ivalid);
    target.steps = adaptive.i ? -1 : steps.i;
    target.optimize = optimize.i != 0;
}

ReferenceTarget* SimpleSpline::GetReference(int i) {
    if (i == INTERP_BLOCK_REF) return ipblock;
    return i == PBLOCK_REF ? pblock2 : nullptr;
}

void SimpleSpline::SetReference(int i, ReferenceTarget* target) {
    IParamBlock2* block = DefinedBlock(target);
    if (i == INTERP_BLOCK_REF)
        ipblock = block && block->GetDesc() == GetInterpBlockDesc() ? block : nullptr;
    if (i == PBLOCK_REF) pblock2 = block;
}

Animatable* SimpleSpline::SubAnim(int i) {
    return GetParamBlock(i);
}

WStr SimpleSpline::SubAnimName(int i) {
    if (i == 0) return WStr(L"Parameters");
    return WStr(i == 1 ? L"Interpolation" : L"");
}

IParamBlock2* SimpleSpline::GetParamBlock(int i) {
    if (i == 0) return pblock2;
    return i == 1 ? ipblock : nullptr;
}

RefResult SimpleSpline::NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&,
                                         RefMessage message, bool) {
    // Only the blocks are referenced: any change of theirs is a change of the shape.
    if (message == REFMSG_CHANGE) ivalid.SetEmpty();
    return REF_SUCCEED;
}

ObjectState SimpleSpline::Eval(TimeValue t) {
    UpdateShape(t);
    return {this};
}

Interval SimpleSpline::ObjectValidity(TimeValue t) {
    UpdateShape(t);
    return ivalid;
}

int SimpleSpline::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    GraphicsWindow* gw = BeginNodeDisplay(t, node, vpt);
    if (!gw) return 0;
    UpdateShape(t);
    shape.DisplayOutline().Draw(gw);
    return 1;
}

int SimpleSpline::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                          ViewExp* vpt) {
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

void SimpleSpline::GetLocalBoundBox(TimeValue t, INode*, ViewExp*, Box3& box) {
    UpdateShape(t);
    box = shape.GetBoundingBox();
}

void SimpleSpline::GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm, bool useSel) {
    UpdateShape(t);
    ShapeObject::GetDeformBBox(t, box, tm, useSel);
}

ReferenceTarget* SimpleSpline::Clone(RemapDir& remap) {
    return CloneObject(this, remap);
}

}  // namespace host
