#pragma once

#include "host/math/Box3.h"
#include "host/math/Quat.h"
#include "host/object/ReferenceTarget.h"

namespace host {

class CreateMouseCallBack;
class INode;
class ISubObjType;
class ModContext;
class SubObjAxisCallback;
class ViewExp;
struct HitRecord;
struct IPoint2;
struct SnapInfo;
struct XFormModes;

// What every object and modifier of a node shares: drawing, picking, snapping, bounding
// boxes and sub-object levels. Without a viewport a BaseObject draws nothing; its boxes
// are real, and the world box is the local one carried by the node's object transform.
// An object without sub-object levels keeps the defaults, which do nothing.
class BaseObject : public ReferenceTarget {
public:
    virtual int Display(TimeValue, INode*, ViewExp*, int /*flags*/) { return 0; }
    virtual int HitTest(TimeValue, INode*, int /*type*/, int /*crossing*/, int /*flags*/, IPoint2*,
                        ViewExp*) {
        return 0;
    }
    // Hit test of the sub-object level in force: each hit is logged with the view.
    virtual int HitTest(TimeValue, INode*, int /*type*/, int /*crossing*/, int /*flags*/, IPoint2*,
                        ViewExp*, ModContext*) {
        return 0;
    }
    // The host's extended display flags, given when they change.
    virtual void SetExtendedDisplay(int /*flags*/) {}
    // Offers the object's snap points near the cursor p to snap.
    virtual void Snap(TimeValue, INode*, SnapInfo*, IPoint2* /*p*/, ViewExp*) {}
    virtual void GetLocalBoundBox(TimeValue, INode*, ViewExp*, Box3& box) { box.Init(); }
    virtual void GetWorldBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box);
    // The box of the points that a modifier deforms, through tm when given.
    virtual void GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm = nullptr, bool useSel = false);

    // The transform tools on the sub-object selection. partm is the selection's
    // transform to world, tmAxis the tool's axis system to world; val is in tmAxis's
    // space. With localOrigin each cluster turns about its own centre.
    virtual void Move(TimeValue, Matrix3& /*partm*/, Matrix3& /*tmAxis*/, Point3& /*val*/,
                      bool /*localOrigin*/ = false) {}
    virtual void Rotate(TimeValue, Matrix3& /*partm*/, Matrix3& /*tmAxis*/, Quat& /*val*/,
                        bool /*localOrigin*/ = false) {}
    virtual void Scale(TimeValue, Matrix3& /*partm*/, Matrix3& /*tmAxis*/, Point3& /*val*/,
                       bool /*localOrigin*/ = false) {}

    // Sub-object levels: their number and names (level i + 1 is type i; -1 the one in
    // force), and entering level (0 leaves sub-object mode), where the object names the
    // tools the level offers in modes.
    virtual int NumSubObjTypes() { return 0; }
    virtual ISubObjType* GetSubObjType(int) { return nullptr; }
    virtual void ActivateSubobjSel(int /*level*/, XFormModes& /*modes*/) {}
    // Selection at a level: the hit's component set to selected (or flipped with
    // invert), every logged hit with all; clearing, selecting and inverting everything.
    virtual void SelectSubComponent(HitRecord*, bool /*selected*/, bool /*all*/,
                                    bool /*invert*/ = false) {}
    virtual void ClearSelection(int /*selLevel*/) {}
    virtual void SelectAll(int /*selLevel*/) {}
    virtual void InvertSelection(int /*selLevel*/) {}
    // The centres and axis systems the transform tools use at the level in force.
    virtual void GetSubObjectCenters(SubObjAxisCallback*, TimeValue, INode*, ModContext*) {}
    virtual void GetSubObjectTMs(SubObjAxisCallback*, TimeValue, INode*, ModContext*) {}

    // How the object is placed with the mouse when it is created in a viewport (see
    // CreateNodeByClicks); null for an object that is not made that way.
    virtual CreateMouseCallBack* GetCreateMouseCallBack() { return nullptr; }
};

}  // namespace host
