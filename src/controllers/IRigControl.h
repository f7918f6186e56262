#pragma once

#include "frame/FrameIds.h"
#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"
#include "host/object/FPInterface.h"

namespace zorvanta {

// The rig control's published interface: its offset transform as a whole and by parts,
// and figure mode, as properties. Its id is the rig control's class id.
inline constexpr host::Interface_ID RIG_CONTROL_INTERFACE_ID = RIG_CONTROL_CLASS_ID;

class IRigControl : public host::FPMixinInterface {
public:
    virtual host::Point3 GetOffsetPos() = 0;
    virtual void SetOffsetPos(const host::Point3& p) = 0;
    virtual host::Quat GetOffsetRot() = 0;
    virtual void SetOffsetRot(const host::Quat& q) = 0;
    virtual host::Point3 GetOffsetScale() = 0;
    virtual void SetOffsetScale(const host::Point3& s) = 0;
    virtual host::Matrix3 GetOffsetTM() = 0;
    virtual void SetOffsetTM(const host::Matrix3& m) = 0;
    virtual bool GetFigureMode() = 0;
    virtual void SetFigureMode(bool on) = 0;

    // The interface's description, the same for every rig control.
    static const host::FPInterfaceDesc* Desc();
    const host::FPInterfaceDesc* GetDesc() override { return Desc(); }
    host::FPStatus _dispatch_fn(host::FunctionID fid, host::TimeValue t, host::FPValue& result,
                                host::FPParams* p) override;
};

}  // namespace zorvanta
