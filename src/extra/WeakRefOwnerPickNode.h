#pragma once

#include "host/object/PickMode.h"

namespace zorvanta {

class WeakRefOwner;

// The viewport pick of a weak node parameter: the node clicked is set into the
// parameter, as one undo step "Parameter Change". While the mode is on, the
// parameter's pick button is pressed and the prompt asks to select an object.
class WeakRefOwnerPickNode : public host::PickModeCallback, public host::PickNodeCallback {
public:
    // The one pick of the process; StartPick points it at an owner's parameter.
    static WeakRefOwnerPickNode& Instance();
    void SetOwner(WeakRefOwner* owner, int param) {
        owner_ = owner;
        param_ = param;
    }
    WeakRefOwner* GetOwner() const { return owner_; }

    bool HitTest(host::Interface* ip, host::ViewExp* vpt, host::IPoint2 m, int flags) override;
    bool Pick(host::Interface* ip, host::ViewExp* vpt) override;
    void EnterMode(host::Interface* ip) override;
    void ExitMode(host::Interface* ip) override;
    host::PickNodeCallback* GetFilter() override { return this; }
    bool Filter(host::INode* node) override;

private:
    void CheckButton(bool checked);

    WeakRefOwner* owner_ = nullptr;
    int param_ = -1;
};

}  // namespace zorvanta
