#pragma once

#include "host/core/BitArray.h"
#include "host/math/Matrix3.h"
#include "host/math/Quat.h"
#include "host/object/FPInterface.h"

namespace host {
class IParamBlock2;
}

namespace zorvanta {

// What the control objects publish: the shape type and the gizmo, the matrix that
// places the shape inside the object, in parts or whole, and the selector's face
// selection. The control helper and the control shape publish the same properties,
// each under its own interface (IControlHelper, IControlShape), which names the
// description; this base implements them on the object's block. The gizmo is written
// at time 0 (it is never animated); with no block the reads give the identity and
// writes do nothing.
class ControlInterface : public host::FPMixinInterface {
public:
    enum FunctionId : host::FunctionID {
        kGetType,
        kSetType,
        kGetGizmoPos,
        kSetGizmoPos,
        kGetGizmoRot,
        kSetGizmoRot,
        kGetGizmoScale,
        kSetGizmoScale,
        kGetGizmoTM,
        kSetGizmoTM,
        kGetSelectorFaceSel,
        kSetSelectorFaceSel,
    };
    enum EnumId : host::EnumID { kTypeEnum };

    // Script errors (a type outside the catalogue) are thrown as runtime errors.
    host::FPStatus _dispatch_fn(host::FunctionID fid, host::TimeValue t, host::FPValue& result,
                                host::FPParams* p) override;

    int GetType(host::TimeValue t);
    // False, changing nothing, for an index outside the catalogue. An object that keeps
    // a cache of its outline drops it here.
    virtual bool SetType(int type, host::TimeValue t);
    // The gizmo's translation row; setting it keeps the rest.
    host::Point3 GetGizmoPos();
    void SetGizmoPos(const host::Point3& pos);
    // The gizmo's rotation; setting it keeps the translation and each row's length.
    host::Quat GetGizmoRot();
    void SetGizmoRot(const host::Quat& rot);
    // The lengths of the gizmo's rows; setting orthogonalises the rows, then scales
    // them by the value.
    host::Point3 GetGizmoScale();
    void SetGizmoScale(const host::Point3& scale);
    host::Matrix3 GetGizmoTM();
    void SetGizmoTM(const host::Matrix3& tm);
    // The selected faces of the selector node's mesh; the set is one undo entry.
    virtual host::BitArray GetSelectorFaceSel() = 0;
    virtual void SetSelectorFaceSel(const host::BitArray& sel) = 0;

protected:
    // The description of these properties under the interface id and name, with the
    // catalogue's shape names as the type enum.
    static host::FPInterfaceDesc MakeDesc(host::Interface_ID id, const wchar_t* name);
    // The block that holds type and gizmo, or null.
    virtual host::IParamBlock2* ControlBlock() = 0;
};

}  // namespace zorvanta
