#include "host/object/Modifier.h"

#include "host/object/Hold.h"

namespace host {

// The enabled state before and after one switch.
class Modifier::EnableRestore : public RestoreObj {
public:
    EnableRestore(Modifier* mod, bool before) : pin_(mod), mod_(mod), before_(before) {}
    void Restore(bool) override { mod_->SetEnabled(before_); }
    void Redo() override { mod_->SetEnabled(!before_); }
    WStr Description() override { return WStr(L"Modifier Enable"); }

private:
    TargetPin pin_;
    Modifier* mod_;
    bool before_;
};

void Modifier::SetEnabled(bool on) {
    if (enabled_ == on) return;
    if (theHold.Holding()) theHold.Put(new EnableRestore(this, enabled_));
    enabled_ = on;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

}  // namespace host
