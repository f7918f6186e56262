#include "host/classes/LinkControl.h"

#include <algorithm>
#include <functional>

#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/TargetLoop.h"
#include "host/object/RemapDir.h"

namespace host {

ClassDesc2* GetLinkControlDesc() {
    static HostClassDesc<LinkControl> desc(L"Link Control", L"Link_Control", CTRL_MATRIX3_CLASS_ID,
                                           LINK_CONTROL_CLASS_ID);
    return &desc;
}

LinkControl::LinkControl(bool loading) {
    if (!loading) ReplaceReference(0, NewDefaultMatrix3Controller());
}

bool LinkControl::AddTarget(INode* node, TimeValue t) {
    if (!node || TargetWouldLoop(this, node)) return false;
    Link(node, t);
    return true;
}

bool LinkControl::AddWorld(TimeValue t) {
    Link(nullptr, t);
    return true;
}

bool LinkControl::DeleteTarget(int i) {
    if (!links_.Valid(i)) return false;
    links_.Delete(i);
    return true;
}

bool LinkControl::SetFrame(int i, TimeValue t) {
    bool taken = false;
    SlotFor(t, taken);
    if (!links_.Valid(i) || (taken && GetFrame(i) != t)) return false;
    if (GetFrame(i) == t) return true;
    INode* target = GetNode(i);
    const TargetPin keep(target);
    links_.Delete(i);
    links_.Insert(SlotFor(t, taken), target, t);
    return true;
}

int LinkControl::ActiveLink(TimeValue t) const {
    int active = -1;
    for (int i = 0; i < links_.Count() && links_.DataAt(i) <= t; ++i) active = i;
    return active;
}

int LinkControl::SlotFor(TimeValue t, bool& taken) const {
    int at = 0;
    while (at < links_.Count() && links_.DataAt(at) < t) ++at;
    taken = at < links_.Count() && links_.DataAt(at) == t;
    return at;
}

void LinkControl::Link(INode* target, TimeValue t) {
    INode* owner = FindOwnerNode(this);
    const Matrix3 parent = owner ? owner->GetParentTM(t) : Matrix3();
    Interval ignored = FOREVER;
    Matrix3 world = parent;
    GetValue(t, &world, ignored);
    bool taken = false;
    const int at = SlotFor(t, taken);
    if (taken) links_.Delete(at);
    links_.Insert(at, target, t);
    if (!sub_) return;
    SetXFormPacket packet;
    packet.command = XFORM_SET;
    packet.tmParent = LinkFrame(t, parent, ignored);
    packet.tmAxis = world;
    sub_->SetValue(t, &packet, 1, CTRL_RELATIVE);
}

Matrix3 LinkControl::LinkFrame(TimeValue t, const Matrix3& parent, Interval& valid) {
    const int i = ActiveLink(t);
    const TimeValue start = i < 0 ? TIME_NegInfinity : GetFrame(i);
    const TimeValue end = i + 1 < links_.Count() ? GetFrame(i + 1) - 1 : TIME_PosInfinity;
    valid &= Interval(start, end);
    if (i < 0) return parent;
    INode* target = GetNode(i);
    return target ? target->GetNodeTM(t, &valid) : Matrix3();
}

void LinkControl::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod) {
    auto& tm = *static_cast<Matrix3*>(val);
    tm = LinkFrame(t, tm, valid);
    if (sub_) sub_->GetValue(t, &tm, valid, CTRL_RELATIVE);
}

void LinkControl::SetValue(TimeValue t, void* val, int commit, GetSetMethod) {
    if (!sub_) return;
    SetXFormPacket packet = *static_cast<SetXFormPacket*>(val);
    Interval ignored = FOREVER;
    packet.tmParent = LinkFrame(t, packet.tmParent, ignored);
    sub_->SetValue(t, &packet, commit, CTRL_RELATIVE);
}

ReferenceTarget* LinkControl::GetReference(int i) {
    if (i == 0) return sub_;
    return links_.OwnsSlot(i) ? links_.Slot(i) : nullptr;
}

void LinkControl::SetReference(int i, ReferenceTarget* t) {
    if (i == 0)
        sub_ = ControlOf(t, CTRL_MATRIX3_CLASS_ID);
    else if (links_.OwnsSlot(i))
        links_.SetSlot(i, dynamic_cast<INode*>(t));
}

bool LinkControl::AssignController(Animatable* c, int i) {
    auto* track = dynamic_cast<Control*>(c);
    if (!track || track->TestForLoop(FOREVER, this) != REF_SUCCEED) return false;
    return AssignTrack(track, i, CTRL_MATRIX3_CLASS_ID);
}

RefResult LinkControl::NotifyRefChanged(const Interval&, ReferenceTarget* hTarget, PartID&,
                                        RefMessage message, bool) {
    if (message == REFMSG_TARGET_DELETED && hTarget != sub_)
        for (int i = links_.IndexOf(hTarget); i >= 0; i = links_.IndexOf(hTarget)) links_.Delete(i);
    return REF_SUCCEED;
}

Control* LinkControl::GetPositionController() {
    return sub_ ? sub_->GetPositionController() : nullptr;
}
Control* LinkControl::GetRotationController() {
    return sub_ ? sub_->GetRotationController() : nullptr;
}
Control* LinkControl::GetScaleController() {
    return sub_ ? sub_->GetScaleController() : nullptr;
}
bool LinkControl::SetPositionController(Control* c) {
    return sub_ && sub_->SetPositionController(c);
}
bool LinkControl::SetRotationController(Control* c) {
    return sub_ && sub_->SetRotationController(c);
}
bool LinkControl::SetScaleController(Control* c) {
    return sub_ && sub_->SetScaleController(c);
}

IOResult LinkControl::Save(ISave* isave) {
    links_.SaveTable(isave, chunks::CTRL_LINK_TIMES);
    return IO_OK;
}

IOResult LinkControl::Load(ILoad* iload) {
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        return id == chunks::CTRL_LINK_TIMES ? links_.LoadTable(iload) : IO_OK;
    });
    if (result != IO_OK) return result;
    // One link per time, sorted: the order is that of the target references to come,
    // so it cannot be mended here.
    const std::vector<TimeValue>& times = links_.AllData();
    if (std::adjacent_find(times.begin(), times.end(), std::greater_equal<>()) != times.end())
        return LoadError(iload, "link times are not increasing");
    return IO_OK;
}

ReferenceTarget* LinkControl::Clone(RemapDir& remap) {
    return CloneObject(this, remap,
                       [this](LinkControl& to) { to.links_.SetLoadedData(links_.AllData()); });
}

}  // namespace host
