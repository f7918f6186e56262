#include "extra/WeakRefOwnerPickNode.h"

#include <cassert>

#include "extra/WeakRefOwner.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/PanelService.h"
#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

WeakRefOwnerPickNode& WeakRefOwnerPickNode::Instance() {
    static WeakRefOwnerPickNode picker;
    return picker;
}

bool WeakRefOwnerPickNode::HitTest(Interface* ip, ViewExp* vpt, IPoint2 m, int) {
    return ip->PickNode(*vpt, m, nullptr) != nullptr;
}

bool WeakRefOwnerPickNode::Pick(Interface* ip, ViewExp* vpt) {
    if (!owner_) return false;
    assert(vpt->IsAlive() && "Doing Pick() on invalid viewport!");
    const HitRecord* hit = vpt->GetClosestHit();
    INode* node = hit ? hit->nodeRef : nullptr;
    if (!node) return false;
    IParamBlock2* block = owner_->GetParamBlock(param_);
    if (!block) return true;
    theHold.Begin();
    block->SetValue(owner_->GetParamId(param_), ip->GetTime(), static_cast<ReferenceTarget*>(node),
                    0);
    theHold.Accept(WStr(GetString(IDS_PARAMETER_CHANGE)));
    return true;
}

void WeakRefOwnerPickNode::EnterMode(Interface* ip) {
    CheckButton(true);
    ip->Status().PushPrompt(WStr(GetString(IDS_SELECT_OBJECT)));
}

void WeakRefOwnerPickNode::ExitMode(Interface* ip) {
    CheckButton(false);
    ip->Status().PopPrompt();
}

bool WeakRefOwnerPickNode::Filter(INode* node) {
    return owner_ && owner_->GetPickFilter(param_, node);
}

void WeakRefOwnerPickNode::CheckButton(bool checked) {
    if (void* dialog = owner_ ? owner_->GetDialog(param_) : nullptr)
        GetPanelService().SetButtonCheck(dialog, owner_->GetPickControlId(param_), checked);
}

}  // namespace zorvanta
