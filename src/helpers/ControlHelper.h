#pragma once

#include "extra/WeakRefOwner.h"
#include "frame/FrameIds.h"
#include "helpers/ControlDisplayTransform.h"
#include "helpers/HelperIds.h"
#include "helpers/IControlHelper.h"
#include "helpers/ShapeCatalogue.h"
#include "host/classes/BlockObject.h"
#include "host/classes/MNMesh.h"
#include "host/object/HelperObject.h"

namespace zorvanta {

// The object a rig's control node carries: a helper with no geometry that draws one of
// the catalogue's shapes as a wireframe. All its settings are one parameter block;
// the gizmo (a matrix in the block) moves, turns and scales the shape inside the
// object without touching the node. Sub-object level 1 ("Gizmo") hands the gizmo to the
// viewport's transform tools; level 2 ("Selector Polygon") picks faces of the selector
// node's mesh, which the selector overlay draws and picks by.
//
// The selector overlay (selectorMesh, pickMesh) is not built yet: its parameters,
// faceSel and the mesh fields keep their places, and the overlay draws, hits and bounds
// nothing.
class ControlHelper : public host::BlockObject<host::HelperObject>,
                      public IControlHelper,
                      public WeakRefOwner {
public:
    static constexpr host::SClass_ID kSuperClassId = host::HELPER_CLASS_ID;
    static constexpr host::Class_ID kClassId = CONTROL_HELPER_CLASS_ID;
    // Blended-away controls (weight under this) neither draw nor bound.
    static constexpr float kMinDisplayWeight = 0.1f;
    enum SubObjLevel : int { kObjectLevel = 0, kGizmoLevel = 1, kSelectorLevel = 2 };

    // Defines the block for desc and publishes IControlHelper through it. Called once,
    // before any instance is made.
    static void DescribeBlocks(host::ClassDesc2* desc);

    // The block comes from the class's definition unless loading.
    explicit ControlHelper(bool loading = false);

    host::Class_ID ClassID() override { return kClassId; }
    host::WStr GetClassName() override;
    using BlockObject::GetInterface;
    void* GetInterface(uint32_t id) override;
    host::FPInterface* GetInterface(host::Interface_ID id) override;
    host::IParamBlock2* GetParamBlock(int i) override { return i == 0 ? pblock_ : nullptr; }

    // Opens the parameter and selector rollups (nothing without a user interface) and
    // makes the gizmo's transform tools; EndEditParams takes them away.
    void BeginEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* prev) override;
    void EndEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* next) override;

    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

    // Drawing and picking, in the display transform.
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt) override;
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt, host::ModContext* mc) override;
    void SetExtendedDisplay(int flags) override { extendedDisplay = flags; }
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

    // The transform tools at the gizmo level: they rewrite the gizmo at time 0.
    void Move(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
              bool localOrigin = false) override;
    void Rotate(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Quat& val,
                bool localOrigin = false) override;
    void Scale(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
               bool localOrigin = false) override;

    int NumSubObjTypes() override { return 2; }
    host::ISubObjType* GetSubObjType(int i) override;
    void ActivateSubobjSel(int level, host::XFormModes& modes) override;
    void SelectSubComponent(host::HitRecord* hitRec, bool selected, bool all,
                            bool invert = false) override;
    void ClearSelection(int selLevel) override;
    void SelectAll(int selLevel) override;
    void InvertSelection(int selLevel) override;
    void GetSubObjectCenters(host::SubObjAxisCallback* cb, host::TimeValue t, host::INode* node,
                             host::ModContext* mc) override;
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

    host::BitArray GetSelectorFaceSel() override { return faceSel; }
    void SetSelectorFaceSel(const host::BitArray& sel) override;

    int NumWeakParams() override { return 1; }
    host::ParamID GetParamId(int) override { return CH_SELECTOR_NODE; }
    void* GetDialog(int) override { return selectorRollup; }
    host::RefResult ForwardMessage(const host::Interval& changeInt, host::ReferenceTarget* target,
                                   host::PartID& partID, host::RefMessage message,
                                   bool propagate) override;

    int SubObjectLevel() const { return subObjLevel; }

    host::IObjParam* ip = nullptr;
    void* rollup = nullptr;
    void* selectorRollup = nullptr;
    host::BitArray faceSel;
    int extendedDisplay = 0;
    host::MNMesh selectorMesh;
    host::MNMesh pickMesh;
    host::TimeValue selectorMeshTime = 0;
    host::TimeValue pickMeshTime = 0;
    int selectorMeshDirty = 1;
    int pickMeshDirty = 1;

protected:
    host::IParamBlock2* ControlBlock() override { return pblock_; }

private:
    class SelectorFSelRestore;

    ControlDisplaySettings Settings(host::TimeValue t);
    // After the face selection changed: the overlay is rebuilt, the rollups and the
    // dependents told.
    void RefreshSelection();
    void RefreshRollups();
    // Level 2 with a block and the selector on: the guard of every selection call.
    bool SelectorEditable();
    // Writes g into the gizmo at time 0.
    void SetGizmo(const host::Matrix3& g);
    // The node's position in world, for the offset line and the boxes.
    static host::Point3 NodePosition(host::TimeValue t, host::INode* node);

    int subObjLevel = kObjectLevel;
};

}  // namespace zorvanta
