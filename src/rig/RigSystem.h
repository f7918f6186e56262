#pragma once

#include <vector>

#include "frame/FrameIds.h"
#include "host/classes/BlockObject.h"
#include "host/core/BitArray.h"
#include "host/math/Box3.h"
#include "host/object/CreateMouseCallBack.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/HelperObject.h"
#include "rig/GuideParams.h"
#include "rig/IRigSystem.h"
#include "rig/RigPoint.h"

namespace zorvanta {

// The rig object: a helper whose display is the guide points of a rig template (a rig
// type and its structural counts). The user places the points at the sub-object level;
// CreateRig turns them into bones, controls, constraints, a panel and a pose kit in one
// undo step, after which the object stays as the record of the template (RIG_ACTIVE
// off) until ResetRig deletes what was built.
//
// The class has two catalogue identities, Rig (a helper, which holds the block and the
// interface) and RigSystem (a system, which the create panel shows); both make this
// class, and an instance reports Rig's class id.
//
// Points live in a unit frame: a point's object-space position is pos * helper_size.
class RigSystem : public host::BlockObject<host::HelperObject>, public IRigSystem {
public:
    static constexpr host::SClass_ID kSuperClassId = host::HELPER_CLASS_ID;
    static constexpr host::Class_ID kClassId = RIG_CLASS_ID;
    // Sub-object level of the guide points.
    static constexpr int kPointLevel = 1;

    // Defines the block for desc (the Rig identity) and publishes IRigSystem through it.
    static void DescribeBlocks(host::ClassDesc2* desc);
    // The block's definition, for its defaults.
    static const host::ParamBlockDesc2* BlockDesc();

    // The block comes from the class's definition unless loading; the points of the
    // default template are made at once.
    explicit RigSystem(bool loading = false);
    ~RigSystem() override;

    host::Class_ID ClassID() override { return kClassId; }
    host::WStr GetClassName() override;  // "Rig"
    using BlockObject::GetInterface;
    host::FPInterface* GetInterface(host::Interface_ID id) override;

    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;
    void BeginEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* prev) override;
    void EndEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* next) override;

    // --- Guide points ---------------------------------------------------------------
    // Makes the points of the template described by params, carrying moved positions
    // over by name unless discard (a change of type or side). Under an open hold the
    // whole point list is recorded, before and after.
    void RebuildPoints(bool discard, const GuideParams& params);
    // The same for the block's present values.
    void RebuildPoints(bool discard);
    const std::vector<RigPoint>& Points() const { return points; }
    // The point named by the builders' short-name rule ("r_finger_2_3" for "finger",
    // side 0, index 1, sub 2), or -1.
    int FindPoint(const wchar_t* name, int side = -1, int index = -1, int sub = -1) const;
    // Point i in object space (pos * helper_size); zero for a bad index.
    host::Point3 PointPos(int i) const;
    // The bounds of all points (object space), and the sub-object gizmo at the
    // selection's centre; recomputed when dirty or t moved.
    void UpdateBounds(host::TimeValue t);
    const host::Box3& PointsBox() const { return bounds; }
    // The structural parameter values seen at the last rebuild.
    const GuideParams& LastParams() const { return lastParams; }

    // Selection of points, at the point level. Fixed points are never selected.
    void SelectPoint(int i, bool on);
    void SelectComponent(int component);
    const host::BitArray& PointSelection() const { return pointSelection; }
    // Moves the selected points (with their children when affect_children, and their
    // mirror partners when affect_mirror) by xform in the axis system tmAxis, for an
    // object transformed by partTM. One undo record of the positions per gesture.
    void TransformSelection(const host::Matrix3& partTM, const host::Matrix3& tmAxis,
                            const host::Matrix3& xform);

    // --- IRigSystem -----------------------------------------------------------------
    void CreateRig() override;
    void ResetRig() override;
    host::Point3 GetPointPos(const host::WStr& name, int side = -1, int index = -1,
                             int subIndex = -1) override;
    void SetPointPos(const host::WStr& name, const host::Point3& pos, int side = -1, int index = -1,
                     int subIndex = -1) override;
    int GetType() override;
    void SetType(int type) override;
    bool Load(const host::WStr& fileName) override;
    bool Save(const host::WStr& fileName) override;
    void LoadDlg() override;
    void SaveDlg() override;
    int GetNumExtras() override { return int(extras.size()); }
    int AddExtra(const host::WStr& name = {}, const host::WStr& parent = {}, int side = kSideNone,
                 int numControls = 1, int numBones = 2, bool useBones = false) override;
    bool RemoveExtra(int index) override;
    host::WStr GetExtraName(int index) override;
    bool SetExtraName(int index, const host::WStr& name) override;
    host::WStr GetExtraParent(int index) override;
    bool SetExtraParent(int index, const host::WStr& parent) override;
    int GetExtraSide(int index) override;
    bool SetExtraSide(int index, int side) override;
    int GetExtraNumControls(int index) override;
    bool SetExtraNumControls(int index, int numControls) override;
    int GetExtraNumBones(int index) override;
    bool SetExtraNumBones(int index, int numBones) override;
    bool GetExtraUseBones(int index) override;
    bool SetExtraUseBones(int index, bool useBones) override;
    const std::vector<RigExtra>& Extras() const { return extras; }

    // --- Display and sub-objects ----------------------------------------------------
    int Display(host::TimeValue t, host::INode* node, host::ViewExp* vpt, int flags) override;
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt) override;
    void GetLocalBoundBox(host::TimeValue t, host::INode* node, host::ViewExp* vpt,
                          host::Box3& box) override;
    void GetWorldBoundBox(host::TimeValue t, host::INode* node, host::ViewExp* vpt,
                          host::Box3& box) override;
    void Move(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
              bool localOrigin = false) override;
    void Rotate(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Quat& val,
                bool localOrigin = false) override;
    void Scale(host::TimeValue t, host::Matrix3& partm, host::Matrix3& tmAxis, host::Point3& val,
               bool localOrigin = false) override;
    int NumSubObjTypes() override { return 1; }
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
    int SubObjectLevel() const { return subObjLevel; }

    // --- Point editing: selection, transforms, display, creation --------------------
    // (RigSystemSelect.cpp, RigSystemTransform.cpp, RigSystemDisplay.cpp)
    // After points were filled or edited from outside (readers, test fixtures): the
    // selection bits, derived lists and bounds follow, and dependents are told.
    void PointsEdited() { PointsChanged(); }
    // The points the present gesture moves: 1 for a selected point, 2 for one reached
    // from a selected point along the parent links it follows (affect_children), 0
    // otherwise. Rebuilt at each TransformSelection.
    const std::vector<uint8_t>& MovedMarks() const { return movedMarks; }
    // The point level's hit test: one hit record per point hit, hitInfo its index.
    int HitTest(host::TimeValue t, host::INode* node, int type, int crossing, int flags,
                host::IPoint2* p, host::ViewExp* vpt, host::ModContext* mc) override;
    // One click in a viewport places the rig there.
    host::CreateMouseCallBack* GetCreateMouseCallBack() override;

    // --- Block access for the accessors and the build -------------------------------
    host::IParamBlock2* Block() { return pblock_; }
    bool Active() { return Bool(RIG_ACTIVE, 0); }
    float HelperSize() { return Float(RIG_HELPER_SIZE, 0); }
    // What the parameter accessors tell the object: parameter id takes value v (not
    // stored yet). Rebuilds the points unless loading, undoing or redoing; a new type
    // first puts the type's structure defaults into the block.
    void ParamChanging(host::ParamID id, int value);
    void SelectedComponentChanging(int value);

    // --- Added for the accessors, the extras and scene files ------------------------
    // helper_size takes size (not stored yet): positions read through it at once.
    void HelperSizeChanging(float size);
    // Writes selected_component (undoable) without the selection effect of its
    // accessor, for code that follows a selection it made itself.
    void WriteSelectedComponent(int value);
    // The extra that a selected_component value names, or -1.
    static int ExtraOfComponent(int component) {
        return component >= kExtraComponentBase ? component - kExtraComponentBase : -1;
    }

    // The current guide points, in creation order.
    std::vector<RigPoint> points;
    // The user's extra chains, sorted so that each comes after what it hangs on.
    std::vector<RigExtra> extras;
    host::BitArray pointSelection;
    // A copy of selected_component: a component id, or 1000 + an extra's index.
    int selectedComponent = 0;

private:
    class PointsRestore;
    class PointsPosRestore;
    class PointsSelRestore;
    class ExtrasRestore;

    // After the points changed: derived lists rebuilt, bounds dirty, dependents told.
    void PointsChanged();

    // --- Added for the accessors, the extras and scene files ------------------------
    class TypeDefaultsWriter;
    class LoadedCallback;
    // Writes the structure counts a new type starts with into the block, under the
    // open hold, without a rebuild for each.
    void WriteTypeDefaults(int type);
    // Orders the extras so that each comes after what it hangs on (undoable), keeping
    // selected_component on the same extra.
    void SortExtras();
    // One undoable edit of extra index: ExtrasRestore, change, sort, rebuild.
    template <class Change>
    bool EditExtra(int index, Change change);
    // Renames the points of an extra whose record changes from before to after, so a
    // renamed extra keeps its moved points.
    void RenameExtraPoints(const RigExtra& before, const RigExtra& after);
    bool ValidExtra(int index) const { return index >= 0 && size_t(index) < extras.size(); }
    bool writingDefaults = false;
    // What a rebuild replaces (the points, the extras' placement flags and the values
    // the points were made from), and the extras alone, for the snapshot restores.
    struct TemplateState {
        std::vector<RigPoint> points;
        std::vector<RigExtra> extras;
        GuideParams params;
    };
    TemplateState SaveTemplateState() const { return {points, extras, lastParams}; }
    void LoadTemplateState(const TemplateState& state);
    std::vector<RigExtra> SaveExtras() const { return extras; }
    void LoadExtras(const std::vector<RigExtra>& state);
    // --- Point editing (see the public block above) ---------------------------------
    // The parent whose movement point i follows: its parent's parent with
    // kPointFollowGrandparent, its mirror partner's parent with
    // kPointFollowMirrorParent, else its parent; -1 for none.
    int FollowedParent(int i) const;
    void MarkMovedPoints();
    // The mirror rule: partner m's position for point i where it is now.
    host::Point3 MirroredPos(int i, int m, bool relativeToParent) const;
    // The selection (non-fixed points only) as one undo step named "Select", with
    // parameter 81 written as well when component is 81's new value.
    void ChangeSelection(const host::BitArray& next, const int* component);
    void ApplySelection(const host::BitArray& sel);
    // The draw order (fixed points, then the others, then the selected ones on top),
    // rebuilt on every change of the points.
    void RebuildDrawLists();
    void DrawFigure(host::GraphicsWindow* gw, host::TimeValue t, host::INode* node);

    std::vector<uint8_t> movedMarks;
    std::vector<int> drawOrder;
    // A PointsPosRestore of the gesture under way is in the open hold.
    bool positionsHeld = false;
    // The helper_size the bounds were computed with.
    float boundsSize = 0.0f;

    GuideParams lastParams;
    host::Box3 bounds;
    host::Matrix3 gizmoTM;
    int numSelected = 0;
    host::TimeValue boundsTime = 0;
    bool boundsDirty = true;
    int subObjLevel = 0;
    void* rollup = nullptr;
};

}  // namespace zorvanta
