#pragma once

#include "host/core/BitArray.h"
#include "host/math/Matrix3.h"
#include "host/math/Quat.h"
#include "host/object/FPInterface.h"

namespace host {
class IParamBlock2;
}

namespace zorvanta {

// The control helper's published interface: its shape type and its gizmo, the matrix
// that places the shape inside the object, in parts or whole, and the selector's face
// selection. Scripts reach it on any control helper. The gizmo is written at time 0
// (it is never animated); with no block the reads give the identity and writes do
// nothing.
class IControlHelper : public host::FPMixinInterface {
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

    // The description, with the catalogue's shape names as the type enum.
    static const host::FPInterfaceDesc* Desc();
    const host::FPInterfaceDesc* GetDesc() override { return Desc(); }
    // Script errors (a type outside the catalogue) are thrown as runtime errors.
    host::FPStatus _dispatch_fn(host::FunctionID fid, host::TimeValue t, host::FPValue& result,
                                host::FPParams* p) override;

    int GetType(host::TimeValue t);
    // False, changing nothing, for an index outside the catalogue.
    bool SetType(int type, host::TimeValue t);
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
    // The block that holds type and gizmo, or null.
    virtual host::IParamBlock2* ControlBlock() = 0;
};

}  // namespace zorvanta
