#pragma once

#include "frame/FrameIds.h"
#include "host/classes/IEulerControl.h"
#include "host/classes/XYZController.h"
#include "host/object/ILockedTrack.h"
#include "host/object/JointParams.h"

namespace zorvanta {

// The rotation controller of every rig control: three float tracks of Euler angles
// (sub-anims "X Rotation", "Y Rotation", "Z Rotation", radians) applied in a selectable
// order. Writes keep the angles continuous with the present ones, or with the previous
// key while the host makes keys, so that animation curves don't flip; rotations about
// a gimbal handle or about one of the present Euler axes change that angle only.
//
// For orders 0 to 5 each track holds the angle of its own axis; for the repeating
// orders 6 to 8 the tracks X, Y and Z hold the first, second and third angle, whatever
// axes the order names. Its keys are the merged key times of the three tracks.
class RotationXYZ : public host::XYZController,
                    public host::ILockedTrackImp,
                    public host::IEulerControl {
public:
    explicit RotationXYZ(bool loading = false);
    ~RotationXYZ() override;
    static constexpr host::Class_ID kClassId = ROTATION_XYZ_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_ROTATION_CLASS_ID;

    host::Class_ID ClassID() override { return kClassId; }
    host::SClass_ID SuperClassID() override { return kSuperClassId; }
    host::WStr GetClassName() override;
    using host::XYZController::GetInterface;
    void* GetInterface(uint32_t id) override;

    // Absolute: a Quat. Relative: the matrix passed in turned by the rotation in its own
    // space. Reads while a write is storing its tracks get the angles being written.
    void GetValue(host::TimeValue t, void* val, host::Interval& valid,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    // Absolute: a Quat. Relative: an AngAxis applied after the present rotation. A
    // locked controller ignores both; so does a relative turn that is not finite or
    // beyond kMaxRelativeAngle. Each track takes its angle as a committed absolute value.
    void SetValue(host::TimeValue t, void* val, int commit = 1,
                  host::GetSetMethod method = host::CTRL_ABSOLUTE) override;
    static constexpr float kMaxRelativeAngle = 1.0e4f;  // radians

    int GetOrder() override { return order; }
    // Orders 0 to 8 other than the present one; undoable ("Change Euler Order"). The
    // tracks keep their values: the new order reinterprets them.
    void SetOrder(int o) override;

    // Refused (false) for a track that is locked; otherwise a float controller takes
    // track sub, undoably.
    bool AssignController(host::Animatable* c, int sub) override;

    int NumKeys() override { return KeyTimes().Count(); }
    host::TimeValue GetKeyTime(int i) override;

    host::RefResult NotifyRefChanged(const host::Interval& changeInt,
                                     host::ReferenceTarget* hTarget, host::PartID& partID,
                                     host::RefMessage message, bool propagate) override;

    // The joint limits the IK solvers read (property PROPID_JOINTPARAMS), or null.
    host::JointParamsEuler* GetJointParams();

    // The locked flag, the order and the joint parameters; the tracks are references.
    host::IOResult Save(host::ISave* isave) override;
    host::IOResult Load(host::ILoad* iload) override;
    // The tracks cloned; the order, the locked flag and the joint parameters copied.
    host::ReferenceTarget* Clone(host::RemapDir& remap) override;

    // The motion panel's rollup: one for the class, shown for the controller being
    // edited, with the panel of one of its tracks below it. Other panels open nothing.
    void BeginEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* prev) override;
    // Closes the track's panel; the rollup goes to next when that is an unlocked
    // RotationXYZ, and closes otherwise.
    void EndEditParams(host::IObjParam* ip, uint32_t flags, host::Animatable* next) override;
    // The track (0 X, 1 Y, 2 Z) whose panel the rollup shows, for every instance.
    static int CurrentTrack();
    // Shows track c's panel in place of the present one's; c outside 0 to 2 is a broken
    // invariant.
    static void SelectTrack(int c);

protected:
    void SetReference(int i, host::ReferenceTarget* t) override;

private:
    class SetValueRestore;
    class RotationXYZOrderRestore;
    struct Rollup;
    static Rollup& TheRollup();

    // curval from the tracks at t, unless t lies inside ivalid.
    void UpdateCache(host::TimeValue t);
    // Angles in order of application from the tracks' values, each track into its slot.
    void TracksToAngles(const host::Point3& tracks, float* angles) const;
    // e: the present angles in, the new angles out.
    void AbsoluteAngles(host::TimeValue t, const host::Quat& q, float* e);
    void RelativeAngles(const host::AngAxis& aa, float* e);
    // The tracks take the angles e (in order of application) at t, with undo records
    // around their own and one change message after them.
    void Store(host::TimeValue t, const float* e);
    void ApplyOrder(int o);
    // keyTimes, rebuilt when a track changed since it was last built.
    const host::Tab<host::TimeValue>& KeyTimes();

    int order = 0;
    host::Point3 curval;    // the angles in order of application, radians
    host::Interval ivalid;  // where curval holds; empty when stale
    bool blockUpdate = false;
    host::Tab<host::TimeValue> keyTimes;
    bool keyTimesStale = true;
};

}  // namespace zorvanta
