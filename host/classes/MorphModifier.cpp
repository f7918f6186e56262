#include "host/classes/MorphModifier.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/NotifyRestore.h"
#include "host/object/RemapDir.h"

namespace host {

ClassDesc2* GetMorphModifierDesc() {
    static HostClassDesc<MorphModifier> desc(L"Morpher", L"morpher", OSM_CLASS_ID,
                                             MORPH_MODIFIER_CLASS_ID);
    return &desc;
}

// One channel's name and target before and after one edit.
class MorphModifier::ChannelRestore : public RestoreObj {
public:
    ChannelRestore(MorphModifier* mod, int ch, Channel before, Channel after)
        : pin_(mod), mod_(mod), ch_(ch), before_(std::move(before)), after_(std::move(after)) {}
    void Restore(bool) override { mod_->LoadChannel(ch_, before_); }
    void Redo() override { mod_->LoadChannel(ch_, after_); }
    int Size() override { return int(before_.target.size() + after_.target.size()) + 1; }
    WStr Description() override { return WStr(L"Morph Channel"); }

private:
    TargetPin pin_;
    MorphModifier* mod_;
    int ch_;
    Channel before_, after_;
};

namespace {

// A channel that moves the points: its target and its weight as a fraction.
struct ActiveChannel {
    const std::vector<Point3>* target;
    float weight;
};

}  // namespace

MorphModifier::MorphModifier(bool) {}

void MorphModifier::ModifyObject(TimeValue t, ModContext&, ObjectState* os, INode*) {
    Object* obj = os->obj;
    const int n = obj->NumPoints();
    std::vector<ActiveChannel> active;
    for (int ch = 0; ch < kNumChannels && n > 0; ++ch) {
        if (channels_[size_t(ch)].target.size() != size_t(n)) continue;
        const float percent = std::clamp(GetWeight(ch, t), kMinWeight, kMaxWeight);
        if (percent != 0.0f) active.push_back({&channels_[size_t(ch)].target, percent / 100.0f});
    }
    if (active.empty()) return;
    for (int i = 0; i < n; ++i) {
        const Point3 p = obj->GetPoint(i);
        Point3 delta;
        for (const ActiveChannel& c : active) delta += ((*c.target)[size_t(i)] - p) * c.weight;
        obj->SetPoint(i, p + delta);
    }
    obj->PointsWereChanged();
}

Interval MorphModifier::LocalValidity(TimeValue t) {
    Interval valid = FOREVER;
    for (int ch = 0; ch < kNumChannels; ++ch) GetWeight(ch, t, &valid);
    return valid;
}

WStr MorphModifier::GetChannelName(int ch) const {
    return IsChannel(ch) ? channels_[size_t(ch)].name : WStr();
}

bool MorphModifier::SetChannelName(int ch, const WStr& name) {
    if (!IsChannel(ch)) return false;
    Channel c = channels_[size_t(ch)];
    c.name = name;
    EditChannel(ch, std::move(c));
    return true;
}

const std::vector<Point3>& MorphModifier::GetTarget(int ch) const {
    static const std::vector<Point3> none;
    return IsChannel(ch) ? channels_[size_t(ch)].target : none;
}

bool MorphModifier::SetTarget(int ch, std::vector<Point3> points) {
    if (!IsChannel(ch)) return false;
    Channel c = channels_[size_t(ch)];
    c.target = std::move(points);
    EditChannel(ch, std::move(c));
    return true;
}

bool MorphModifier::CaptureTarget(int ch, INode* node, TimeValue t) {
    if (!IsChannel(ch) || !node) return false;
    Object* obj = node->EvalWorldState(t).obj;
    const int n = obj ? obj->NumPoints() : 0;
    if (n == 0) return false;
    std::vector<Point3> points(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) points[size_t(i)] = obj->GetPoint(i);
    return SetTarget(ch, std::move(points));
}

void MorphModifier::EditChannel(int ch, Channel after) {
    if (theHold.Holding()) theHold.Put(new ChannelRestore(this, ch, channels_[size_t(ch)], after));
    LoadChannel(ch, after);
}

void MorphModifier::LoadChannel(int ch, const Channel& c) {
    Channel& present = channels_[size_t(ch)];
    const bool renamed = present.name != c.name;
    const bool reshaped = present.target != c.target;
    present = c;
    if (reshaped) NotifyDependents(FOREVER, PART_GEOM, REFMSG_CHANGE);
    if (renamed) NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
}

Control* MorphModifier::GetWeightController(int ch, bool create) {
    if (!IsChannel(ch)) return nullptr;
    if (!weights_[size_t(ch)] && create) {
        if (Control* c = NewDefaultFloatController()) ReplaceReference(ch, c);
    }
    return weights_[size_t(ch)];
}

float MorphModifier::GetWeight(int ch, TimeValue t, Interval* valid) {
    Control* c = IsChannel(ch) ? weights_[size_t(ch)] : nullptr;
    if (!c) return 0.0f;
    float percent = 0.0f;
    Interval span = FOREVER;
    c->GetValue(t, &percent, span);
    if (valid) *valid &= span;
    return percent;
}

bool MorphModifier::SetWeight(int ch, TimeValue t, float percent) {
    Control* c = GetWeightController(ch, true);
    if (!c) return false;
    c->SetValue(t, &percent);
    return true;
}

ReferenceTarget* MorphModifier::GetReference(int i) {
    return IsChannel(i) ? weights_[size_t(i)] : nullptr;
}

void MorphModifier::SetReference(int i, ReferenceTarget* target) {
    if (IsChannel(i)) weights_[size_t(i)] = ControlOf(target, CTRL_FLOAT_CLASS_ID);
}

bool MorphModifier::AssignController(Animatable* control, int i) {
    if (!IsChannel(i) || !control || control->SuperClassID() != CTRL_FLOAT_CLASS_ID) return false;
    auto* ctrl = static_cast<Control*>(control);
    if (ctrl == weights_[size_t(i)]) return true;
    if (ctrl->TestForLoop(FOREVER, this) == REF_FAIL) return false;
    ChangeWithNotify(this, [&] { ReplaceReference(i, ctrl); });
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CONTROLREF_CHANGE);
    return true;
}

IOResult MorphModifier::Save(ISave* isave) {
    if (Modifier::Save(isave) != IO_OK) return IO_ERROR;
    const Channel unused;
    for (int ch = 0; ch < kNumChannels; ++ch) {
        const Channel& c = channels_[size_t(ch)];
        if (c.name == unused.name && c.target.empty()) continue;
        isave->BeginChunk(chunks::MORPH_CHANNEL);
        isave->WriteValue(int32_t(ch));
        isave->WriteWString(c.name);
        WriteTable(isave, c.target);
        isave->EndChunk();
    }
    return IO_OK;
}

IOResult MorphModifier::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        return id == chunks::MORPH_CHANNEL ? ReadChannel(iload) : LoadChunk(iload, id);
    });
}

IOResult MorphModifier::ReadChannel(ILoad* iload) {
    int32_t ch = 0;
    Channel c;
    if (iload->ReadValue(ch) != IO_OK) return IO_ERROR;
    if (!IsChannel(ch)) return LoadError(iload, "there is no morph channel " + std::to_string(ch));
    if (iload->ReadWString(c.name) != IO_OK || ReadTable(iload, c.target) != IO_OK) return IO_ERROR;
    channels_[size_t(ch)] = std::move(c);
    return IO_OK;
}

ReferenceTarget* MorphModifier::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](MorphModifier& to) {
        to.CloneModifierState(*this);
        to.channels_ = channels_;
    });
}

}  // namespace host
