#pragma once

#include "frame/FrameIds.h"
#include "helpers/ControlObject.h"
#include "helpers/HelperIds.h"
#include "helpers/IControlShape.h"
#include "host/classes/SimpleSpline.h"

namespace zorvanta {

// The control helper's twin as a spline: a procedural shape whose splines are the
// catalogue's outline (the building form), so that it can be rendered or lofted like
// any shape. It has all of the control helper's parameters (block "params" at
// reference 2, the same ids) and one more, `scale`; the inherited interpolation block
// (reference 0) sets the splines' steps. The gizmo, the axis and the scale are baked
// into the splines when they are built: the splines lie in object space. Face camera and
// constant screen size are kept as parameters but change nothing here.
//
// Display, hit testing and boxes are the shape's own. Sub-object level 1 ("Gizmo")
// hands the gizmo to the viewport's transform tools as the control helper does. The
// selector overlay (see ControlSelector) is not built yet: its parameters and faceSel
// are kept, saved and cloned, and the overlay draws, hits and bounds nothing.
class ControlShape : public ControlObject<host::SimpleSpline, IControlShape> {
public:
    static constexpr host::SClass_ID kSuperClassId = host::SHAPE_CLASS_ID;
    static constexpr host::Class_ID kClassId = CONTROL_SHAPE_CLASS_ID;

    // Lists the interpolation block and defines the shape's own block for desc, and
    // publishes IControlShape through it. Called once, before any instance is made.
    static void DescribeBlocks(host::ClassDesc2* desc);

    // The blocks come from the class's definition unless loading.
    explicit ControlShape(bool loading = false);

    host::Class_ID ClassID() override { return kClassId; }
    host::WStr GetClassName() override;

    // The outline of `type` at t as splines, through G': the gizmo, turned by `axis` and
    // pre-scaled by `scale`. IKFK builds nothing; None builds only the offset line.
    void BuildShape(host::TimeValue t, host::BezierShape& shape) override;
    // Writes the type and drops the built splines, so that the next query rebuilds.
    bool SetType(int type, host::TimeValue t) override;
    // G' at t: shape space to object space (see BuildShape).
    host::Matrix3 ShapeTM(host::TimeValue t);

    // The shape's switches and the face selection.
    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

    // The splines as the shape draws them, with the gizmo marker at level 1.
    int Display(host::TimeValue t, host::INode* node, host::ViewExp* vpt, int flags) override;

    // At the gizmo level, G' in world.
    void GetSubObjectTMs(host::SubObjAxisCallback* cb, host::TimeValue t, host::INode* node,
                         host::ModContext* mc) override;

    // The matrix baked into the splines by the last build: G' (see BuildShape).
    const host::Matrix3& GizmoTM() const { return gizmoTM; }

protected:
    host::IParamBlock2* ControlBlock() override { return pblock2; }
    const wchar_t* FaceSelRestoreName() const override { return L"CSSelectorFSelRestore"; }

private:
    // Narrows ivalid by every parameter of the block at t.
    void NarrowByBlock(host::TimeValue t);
    // Where the offset line ends, in shape space: the pivot of the node the shape is on,
    // so that after G' it lands on the pivot in object space. The origin without a node
    // or with a flat G'.
    host::Point3 OffsetLineEnd(host::TimeValue t, const host::Matrix3& shapeTM);

    host::Matrix3 gizmoTM;
};

}  // namespace zorvanta
