#pragma once

#include "frame/FrameIds.h"
#include "helpers/ControlDisplayTransform.h"
#include "helpers/ControlObject.h"
#include "helpers/HelperIds.h"
#include "helpers/IControlHelper.h"
#include "helpers/ShapeCatalogue.h"
#include "host/classes/BlockObject.h"
#include "host/object/HelperObject.h"

namespace zorvanta {

// The object a rig's control node carries: a helper with no geometry that draws one of
// the catalogue's shapes as a wireframe. All its settings are one parameter block;
// the gizmo (a matrix in the block) moves, turns and scales the shape inside the
// object without touching the node. Sub-object level 1 ("Gizmo") hands the gizmo to the
// viewport's transform tools; level 2 ("Selector Polygon") picks faces of the selector
// node's mesh, which the selector overlay draws and picks by.
//
// The selector overlay (see ControlSelector) is not built yet: its parameters and
// faceSel keep their places, and the overlay draws, hits and bounds nothing.
class ControlHelper : public ControlObject<host::BlockObject<host::HelperObject>, IControlHelper> {
public:
    static constexpr host::SClass_ID kSuperClassId = host::HELPER_CLASS_ID;
    static constexpr host::Class_ID kClassId = CONTROL_HELPER_CLASS_ID;
    // Blended-away controls (weight under this) neither draw nor bound.
    static constexpr float kMinDisplayWeight = 0.1f;

    // Defines the block for desc and publishes IControlHelper through it. Called once,
    // before any instance is made.
    static void DescribeBlocks(host::ClassDesc2* desc);

    // The block comes from the class's definition unless loading.
    explicit ControlHelper(bool loading = false);

    host::Class_ID ClassID() override { return kClassId; }
    host::WStr GetClassName() override;

    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

    // Drawing and picking, in the display transform.
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt) override;
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt, host::ModContext* mc) override;
    int Display(host::TimeValue t, host::INode* node, host::ViewExp* vpt, int flags) override;
    // The object's origin is its one snap point.
    void Snap(host::TimeValue t, host::INode* node, host::SnapInfo* snap, host::IPoint2* p,
              host::ViewExp* vpt) override;
    void GetWorldBoundBox(host::TimeValue t, host::INode* node, host::ViewExp* vpt,
                          host::Box3& box) override;
    void GetLocalBoundBox(host::TimeValue t, host::INode* node, host::ViewExp* vpt,
                          host::Box3& box) override;
    // The shape's box in shape space (through tm when given).
    void GetDeformBBox(host::TimeValue t, host::Box3& box, host::Matrix3* tm = nullptr,
                       bool useSel = false) override;

    // At the gizmo level, the display transform.
    void GetSubObjectTMs(host::SubObjAxisCallback* cb, host::TimeValue t, host::INode* node,
                         host::ModContext* mc) override;

    // What the parameter rollup's type list and "Reset Gizmo" button do, each as one
    // undo entry: a change to the same type records nothing.
    void ChangeType(int type);
    void ResetGizmo();

    // Shape space to world for the node at t in vpt (the active view when null), with
    // the blend scale; see ControlDisplayTM.
    host::Matrix3 DisplayTM(host::TimeValue t, host::INode* node, host::ViewExp* vpt);
    // The share of its size the control is drawn at (see kMinDisplayWeight).
    float DisplayWeight(host::TimeValue t, host::INode* node);
    // The outline as drawn at t, in shape space.
    host::WireOutline Outline(host::TimeValue t, host::INode* node, const host::Matrix3& displayTM);

protected:
    host::IParamBlock2* ControlBlock() override { return pblock_; }
    const wchar_t* FaceSelRestoreName() const override { return L"SelectorFSelRestore"; }

private:
    ControlDisplaySettings Settings(host::TimeValue t);
    // The node's position in world, for the offset line and the boxes.
    static host::Point3 NodePosition(host::TimeValue t, host::INode* node);
};

}  // namespace zorvanta
