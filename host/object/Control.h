#pragma once

#include <cstdint>

#include "host/core/Interval.h"
#include "host/core/Tab.h"
#include "host/math/AngAxis.h"
#include "host/math/Matrix3.h"
#include "host/math/Quat.h"
#include "host/math/ScaleValue.h"
#include "host/object/ClassRegistry.h"
#include "host/object/ReferenceTarget.h"

namespace host {

class INode;
class RemapDir;
class ViewExp;

// How a value is read or written.
enum GetSetMethod : int {
    CTRL_ABSOLUTE = 0,  // the value itself
    CTRL_RELATIVE = 1,  // read: applied to the Matrix3 (or added to the float) passed in;
                        // write: an increment added to (composed with) the value
};

// Commands of a matrix controller's SetValue packet.
enum SetXFormCommand : int { XFORM_MOVE = 0, XFORM_ROTATE = 1, XFORM_SCALE = 2, XFORM_SET = 3 };

// What a matrix controller's SetValue receives. For XFORM_SET, tmAxis is the wanted
// world transform and tmParent the parent's world transform at t; XFORM_MOVE gives a
// world offset in p; XFORM_ROTATE a rotation about tmAxis, in aa or else in q; XFORM_SCALE
// factors in p.
struct SetXFormPacket {
    SetXFormCommand command = XFORM_SET;
    Matrix3 tmParent;
    Matrix3 tmAxis;
    Point3 p;
    Quat q;
    AngAxis aa;
    bool localOrigin = false;
};

// Out-of-range types: what a keyframed track does before its first key and after its last.
enum OutOfRangeType : int {
    ORT_CONSTANT = 1,
    ORT_CYCLE = 2,
    ORT_LOOP = 3,
    ORT_OSCILLATE = 4,
    ORT_LINEAR = 5,
    ORT_IDENTITY = 6,
    ORT_RELATIVE_REPEAT = 7,
};
enum { ORT_BEFORE = 1, ORT_AFTER = 2 };

inline constexpr uint32_t TRACK_DOALL = 2;  // DeleteKeys: every key, not only the selected ones

// The animation controller. Its superclass says its value type: CTRL_FLOAT_CLASS_ID
// (float), CTRL_POSITION_CLASS_ID (Point3), CTRL_ROTATION_CLASS_ID (Quat; AngAxis for a
// relative write), CTRL_SCALE_CLASS_ID (ScaleValue), CTRL_MATRIX3_CLASS_ID (read
// relative only; written with a SetXFormPacket).
//
// GetValue narrows valid by intersection with the span over which the value holds.
// Relative reads: a position controller does tm.PreTranslate(p), a rotation controller
// PreRotateMatrix(tm, q), a scale controller ApplyScaling(tm, s), a matrix controller
// turns the parent's transform into the node's world transform (local * parent).
class Control : public ReferenceTarget {
public:
    virtual void GetValue(TimeValue t, void* val, Interval& valid,
                          GetSetMethod method = CTRL_ABSOLUTE) = 0;
    // commit 0 holds the value as tentative until CommitValue or RestoreValue.
    virtual void SetValue(TimeValue t, void* val, int commit = 1,
                          GetSetMethod method = CTRL_ABSOLUTE) = 0;
    virtual void CommitValue(TimeValue) {}
    virtual void RestoreValue(TimeValue) {}

    // Sub-controllers of matrix and compound controllers.
    virtual Control* GetPositionController() { return nullptr; }
    virtual Control* GetRotationController() { return nullptr; }
    virtual Control* GetScaleController() { return nullptr; }
    virtual bool SetPositionController(Control*) { return false; }
    virtual bool SetRotationController(Control*) { return false; }
    virtual bool SetScaleController(Control*) { return false; }
    virtual Control* GetXController() { return nullptr; }
    virtual Control* GetYController() { return nullptr; }
    virtual Control* GetZController() { return nullptr; }
    bool AssignController(Animatable*, int) override { return false; }

    // Takes the keys or value of another controller of the same type.
    virtual void Copy(Control*) {}
    // A matrix controller's node moves from a parent at oldP to one at newP keeping its
    // world transform tm; false leaves it to the node, which then sets tm itself.
    virtual bool ChangeParents(TimeValue, const Matrix3&, const Matrix3&, const Matrix3&) {
        return false;
    }
    // A transform controller's own drawing in a view, after its node's object; the
    // result is non-zero when it drew.
    virtual int Display(TimeValue, INode*, ViewExp*, int) { return 0; }
    // What a subclass's Clone calls for the part every controller shares: dest takes
    // this controller's out-of-range types (which a controller without keys ignores).
    // The subclass copies its own state and calls BaseClone itself.
    virtual void CloneControl(Control* dest, RemapDir& remap);

    // Keys.
    virtual int NumKeys() { return 0; }
    virtual TimeValue GetKeyTime(int) { return 0; }
    // The index of the key at t, or -1.
    virtual int GetKeyIndex(TimeValue) { return -1; }
    virtual void AddNewKey(TimeValue, uint32_t) {}
    virtual bool IsKeyAtTime(TimeValue, uint32_t) { return false; }
    virtual void DeleteKeyAtTime(TimeValue) {}
    virtual void DeleteKeys(uint32_t) {}
    // The times of the keys inside range, appended to times.
    virtual void GetKeyTimes(Tab<TimeValue>&, Interval, uint32_t) {}
    virtual void SelectKeys(Interval, bool) {}
    virtual bool IsKeySelected(int) { return false; }
    virtual void MoveKeys(TimeValue, bool) {}
    virtual bool IsKeyable() { return false; }
    bool IsAnimated() override { return NumKeys() > 0; }
    virtual bool IsLeaf() { return true; }
    Interval GetTimeRange() override { return NEVER; }
    virtual int GetORT(int) { return ORT_CONSTANT; }
    virtual void SetORT(int, int) {}
};

// The host's default controllers, made through the class directory; null when the
// host classes are not registered. Float: bezier float; position: position XYZ of
// bezier floats; rotation: Euler XYZ of bezier floats.
// target when it is a controller of superClass, else null: what a reference slot that
// holds one type of controller takes, so that a scene file naming another object for
// it leaves the slot empty.
inline Control* ControlOf(ReferenceTarget* target, SClass_ID superClass) {
    auto* control = dynamic_cast<Control*>(target);
    return control && control->SuperClassID() == superClass ? control : nullptr;
}

Control* NewDefaultFloatController();
Control* NewDefaultPositionController();
Control* NewDefaultRotationController();
Control* NewDefaultScaleController();
Control* NewDefaultMatrix3Controller();

}  // namespace host
