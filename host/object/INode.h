#pragma once

#include <cstdint>
#include <vector>

#include "host/core/Tab.h"
#include "host/math/AngAxis.h"
#include "host/math/Matrix3.h"
#include "host/math/Quat.h"
#include "host/math/ScaleValue.h"
#include "host/object/ClassRegistry.h"
#include "host/object/ObjectState.h"
#include "host/object/ReferenceTarget.h"

namespace host {

class Control;
class ILayer;
class Mtl;
class Object;
struct SetXFormPacket;

// A colour as the host passes it: red in the low byte, then green, then blue.
using COLORREF = uint32_t;
constexpr COLORREF RGB(uint32_t r, uint32_t g, uint32_t b) {
    return (r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16);
}

// Transform lock types and axes.
enum TransformLockType : int { INODE_LOCKPOS = 0, INODE_LOCKROT = 1, INODE_LOCKSCALE = 2 };

// A scene node: a place in the hierarchy, a transform controller whose value is the
// node's world transform given the parent's, an object (the top of its pipeline), a
// visibility track, a material, and the display and bone flags.
//
// References: 0 the TM controller, 1 the object, 2 the visibility controller, 3 the
// material. Sub-anims: 0 visibility, 1 transform, 2 object.
//
// The world transform is cached with its validity: a query inside the validity is a
// copy. A change of the controller drops the caches of the node and its descendants,
// and tells each one's dependents (PART_TM). A node asked for its transform while it
// is computing it (a controller that reads its own node) gets the last transform it
// had, valid at that instant only.
//
// The scene owns its nodes: a node in the scene lives until it is deleted, whatever
// refers to it. Every change is undoable.
class INode : public ReferenceTarget {
public:
    enum { TM_REF = 0, OBJ_REF = 1, VIS_REF = 2, MTL_REF = 3, NUM_REFS = 4 };

    INode();
    ~INode() override;

    Class_ID ClassID() override { return Class_ID(BASENODE_CLASS_ID, 0); }
    SClass_ID SuperClassID() override { return BASENODE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Node"); }

    // Hierarchy.
    INode* GetParentNode() { return parent_; }
    int NumberOfChildren() const { return int(children_.size()); }
    INode* GetChildNode(int i);
    bool IsRootNode() const { return isRoot_; }
    // Makes child the last child of this node. With keepTM the child keeps its world
    // transform at the current time (its controller is set), otherwise its local
    // transform, so that it moves with its new parent. Refused (false) for the root,
    // for this node, and for an ancestor of this node.
    bool AttachChild(INode* child, bool keepTM = true);
    // Makes the node a child of the scene root.
    void Detach(TimeValue t, bool keepTM = true);

    // Transforms.
    Matrix3 GetNodeTM(TimeValue t, Interval* valid = nullptr) {
        if (!tmValid_.InInterval(t)) return ComputeNodeTM(t, valid);
        if (valid) *valid &= tmValid_;
        return tm_;
    }
    Matrix3 GetParentTM(TimeValue t);
    // Makes the world transform tm at t through the controller (XFORM_SET).
    void SetNodeTM(TimeValue t, const Matrix3& tm);
    // The node transform with the object offset applied, where the object is drawn.
    Matrix3 GetObjectTM(TimeValue t, Interval* valid = nullptr);
    Matrix3 GetObjTMAfterWSM(TimeValue t, Interval* valid = nullptr) {
        return GetObjectTM(t, valid);
    }
    Matrix3 GetObjTMBeforeWSM(TimeValue t, Interval* valid = nullptr) {
        return GetObjectTM(t, valid);
    }
    Point3 GetObjOffsetPos() const { return props_.offsetPos; }
    void SetObjOffsetPos(const Point3& p);
    Quat GetObjOffsetRot() const { return props_.offsetRot; }
    void SetObjOffsetRot(const Quat& q);
    ScaleValue GetObjOffsetScale() const { return props_.offsetScale; }
    void SetObjOffsetScale(const ScaleValue& s);
    // Increments through the controller: a world offset; a rotation and a scale about
    // the axes of tmAxis (about its origin, or the node's own with localOrigin). Locked
    // axes do not move.
    void Move(TimeValue t, const Matrix3& tmAxis, const Point3& val, bool localOrigin = false);
    void Rotate(TimeValue t, const Matrix3& tmAxis, const AngAxis& val, bool localOrigin = false);
    void Rotate(TimeValue t, const Matrix3& tmAxis, const Quat& val, bool localOrigin = false);
    void Scale(TimeValue t, const Matrix3& tmAxis, const Point3& val, bool localOrigin = false);
    // Drops the cached transforms of this node and its descendants, telling their
    // dependents.
    void InvalidateTreeTM();

    // Content.
    Object* GetObjectRef() { return object_; }
    void SetObjectRef(Object* obj);
    // The object evaluated at t, cached over its validity.
    ObjectState EvalWorldState(TimeValue t);
    Control* GetTMController() { return tmControl_; }
    // Refused (false) for anything but a matrix controller. Sends CONTROLREF_CHANGE.
    bool SetTMController(Control* c);
    Control* GetVisController() { return visControl_; }
    void SetVisController(Control* c);
    Mtl* GetMtl() { return mtl_; }
    void SetMtl(Mtl* m);
    const wchar_t* GetName() const { return props_.name.data(); }
    // Sends NODE_NAMECHANGE.
    void SetName(const wchar_t* name);
    COLORREF GetWireColor() const { return props_.wireColor; }
    void SetWireColor(COLORREF color);
    // The layer the node is on; null for the default layer.
    ILayer* GetLayer() const { return props_.layer; }
    void SetLayer(ILayer* layer);
    // A new node out of the scene with this node's properties (name, wire colour,
    // visibility, flags, bone settings, locks, object offset, layer) and none of its
    // references, children or handle: where a clone of the node starts. Nodes are cloned
    // only with Interface::CloneNodes, which places them in the scene, so Clone answers
    // null.
    INode* CloneProperties() const;
    // Unique in the scene, given when the node enters it.
    uint32_t GetHandle() const { return handle_; }

    // Flags.
    bool Selected() const { return selected_; }
    bool IsHidden() const { return Flag(HIDDEN); }
    void Hide(bool on) { SetFlag(HIDDEN, on); }
    bool IsFrozen() const { return Flag(FROZEN); }
    void Freeze(bool on) { SetFlag(FROZEN, on); }
    bool Renderable() const { return Flag(RENDERABLE); }
    void SetRenderable(bool on) { SetFlag(RENDERABLE, on); }
    bool GetBoneNodeOnOff() const { return Flag(BONE_ON); }
    void SetBoneNodeOnOff(bool on, TimeValue) { SetFlag(BONE_ON, on); }
    bool BoneAsLine() const { return Flag(BONE_AS_LINE); }
    void BoneAsLine(bool on) { SetFlag(BONE_AS_LINE, on); }
    bool GetBoneAutoAlign() const { return Flag(BONE_AUTO_ALIGN); }
    void SetBoneAutoAlign(bool on) { SetFlag(BONE_AUTO_ALIGN, on); }
    int GetBoneScaleType() const { return props_.boneScaleType; }
    void SetBoneScaleType(int type);
    int GetShowBone() const { return props_.showBone; }
    void ShowBone(int mode);
    bool GetInheritVisibility() const { return Flag(INHERIT_VIS); }
    void SetInheritVisibility(bool on) { SetFlag(INHERIT_VIS, on); }
    // The visibility track's value, or the value set without one (1 by default).
    float GetVisibility(TimeValue t, Interval* valid = nullptr);
    void SetVisibility(TimeValue t, float v);
    bool GetTransformLock(int type, int axis) const;
    void SetTransformLock(int type, int axis, bool on);

    // The properties, handle and children; the controllers, object and material are
    // references. A loaded node takes its children as the scene reader makes them.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;

    int NumRefs() override { return NUM_REFS; }
    ReferenceTarget* GetReference(int i) override;
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;
    int NumSubs() override { return 3; }
    Animatable* SubAnim(int i) override;
    WStr SubAnimName(int i) override;

protected:
    void SetReference(int i, ReferenceTarget* target) override;
    bool OwnedByDependents() const override { return !inScene_; }

private:
    friend class Scene;
    class LinkRestore;

    enum FlagBit : uint32_t {
        HIDDEN = 1u << 0,
        FROZEN = 1u << 1,
        RENDERABLE = 1u << 2,
        BONE_ON = 1u << 3,
        BONE_AS_LINE = 1u << 4,
        BONE_AUTO_ALIGN = 1u << 5,
        INHERIT_VIS = 1u << 6,
    };
    // What a node holds besides its references and place, saved whole for undo.
    struct Properties {
        WStr name;
        COLORREF wireColor = RGB(0x80, 0x80, 0x80);
        float visibility = 1.0f;
        uint32_t flags = RENDERABLE | INHERIT_VIS | BONE_AUTO_ALIGN;
        int boneScaleType = 0;
        int showBone = 0;
        uint32_t locks = 0;  // bit 3 * type + axis
        Point3 offsetPos;
        Quat offsetRot;
        ScaleValue offsetScale;
        ILayer* layer = nullptr;
    };

    bool Flag(FlagBit bit) const { return (props_.flags & bit) != 0; }
    void SetFlag(FlagBit bit, bool on);
    // Records the properties when holding, changes them, and tells the dependents.
    template <typename Edit>
    void EditProperties(Edit edit, RefMessage message = REFMSG_CHANGE);
    IOResult LoadChunk(ILoad* iload);
    IOResult LoadChildren(ILoad* iload);
    Properties SaveProperties() const { return props_; }
    void LoadProperties(const Properties& p);
    // Moves node under parent, last, recorded when holding.
    static void Relink(INode* node, INode* parent);
    // Moves the node under parent at index (the end for -1), or out of the scene for
    // a null parent; the scene's bookkeeping follows.
    void Link(INode* parent, int index);
    int IndexInParent() const;
    // The uncached path of GetNodeTM.
    Matrix3 ComputeNodeTM(TimeValue t, Interval* valid);
    void EvaluateTM(TimeValue t);
    void DropTMCaches();
    // v (a world vector) without its components along the locked axes of type, taken
    // in the axes of frame.
    Point3 FreeComponents(const Point3& v, const Matrix3& frame, int type) const;
    // Sends a transform packet to the controller with the parent's transform filled in.
    void Transform(TimeValue t, SetXFormPacket& packet);

    std::vector<INode*> children_;
    Object* object_ = nullptr;
    Control* visControl_ = nullptr;
    Mtl* mtl_ = nullptr;
    Properties props_;
    uint32_t handle_ = 0;
    bool isRoot_ = false;
    bool inScene_ = false;
    bool selected_ = false;

    // What a transform query reads: the cached transform and its validity in one cache
    // line, then the parent and the controller that an evaluation reads.
    alignas(64) Matrix3 tm_;
    Interval tmValid_ = NEVER;
    bool evaluating_ = false;
    INode* parent_ = nullptr;
    Control* tmControl_ = nullptr;
    ObjectState ws_;
    Interval wsValid_ = NEVER;
};

using INodeTab = Tab<INode*>;

// The first node among c's dependents whose transform controller is c, or null: the
// node a transform controller drives.
INode* FindOwnerNode(Control* c);
// The first node whose object is obj, directly or under the node's modifiers (up
// through derived objects only: other dependents lead to other nodes), or null.
INode* FindObjectNode(ReferenceTarget* obj);

}  // namespace host
