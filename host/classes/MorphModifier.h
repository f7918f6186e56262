#pragma once

#include <array>
#include <vector>

#include "host/object/Control.h"
#include "host/object/HostClassIds.h"
#include "host/object/Modifier.h"

namespace host {

// The morph modifier: channels that each pull the object's points towards a target
// shape by a weight. A channel has a name, an optional target (one point a vertex, in
// object space) and a float controller for its weight in percent, made on first use.
//
// ModifyObject moves point i of the incoming object p_i to
//     p_i + sum over channels k of w_k / 100 * (target_k[i] - p_i),
// with w_k clamped to the channel limits 0..100, over the channels whose target has as
// many points as the object. At 100 a lone channel gives its target exactly.
//
// References and sub-anims: the channels' weight controllers (null until made), named
// by their channels. Names and targets are undoable; weights undo through their
// controllers.
class MorphModifier : public Modifier {
public:
    static constexpr int kNumChannels = 100;
    static constexpr float kMinWeight = 0.0f;
    static constexpr float kMaxWeight = 100.0f;

    explicit MorphModifier(bool loading = false);
    Class_ID ClassID() override { return MORPH_MODIFIER_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Morpher"); }

    ChannelMask ChannelsUsed() override { return GEOM_CHANNEL | TOPO_CHANNEL; }
    ChannelMask ChannelsChanged() override { return GEOM_CHANNEL; }
    void ModifyObject(TimeValue t, ModContext& mc, ObjectState* os, INode* node) override;
    // The intersection of the weight controllers' validities at t.
    Interval LocalValidity(TimeValue t) override;

    // Channels are 0..NumChannels()-1; edits of other indices are refused (false).
    int NumChannels() const { return kNumChannels; }
    // "- empty -" until named; empty for an index outside.
    WStr GetChannelName(int ch) const;
    bool SetChannelName(int ch, const WStr& name);
    bool HasTarget(int ch) const { return !GetTarget(ch).empty(); }
    // The target's points; empty without a target.
    const std::vector<Point3>& GetTarget(int ch) const;
    // An empty array takes the target away.
    bool SetTarget(int ch, std::vector<Point3> points);
    // The points of node's object evaluated at t, in its object space. False, changing
    // nothing, without a node or an object with points.
    bool CaptureTarget(int ch, INode* node, TimeValue t);

    // The weight controller; with create, one is made if there is none yet (null when
    // the default float controller cannot be made).
    Control* GetWeightController(int ch, bool create = false);
    // The controller's value in percent, valid narrowed by its validity; 0 without one.
    float GetWeight(int ch, TimeValue t, Interval* valid = nullptr);
    // Sets the weight at t through the controller, made on first use.
    bool SetWeight(int ch, TimeValue t, float percent);

    int NumRefs() override { return kNumChannels; }
    ReferenceTarget* GetReference(int i) override;
    int NumSubs() override { return kNumChannels; }
    Animatable* SubAnim(int i) override { return GetReference(i); }
    WStr SubAnimName(int i) override { return GetChannelName(i); }
    bool CanAssignController(int i) override { return IsChannel(i); }
    // Float controllers only; false for anything else or a controller that depends on
    // this modifier.
    bool AssignController(Animatable* control, int i) override;

    // The modifier's switch, then the channels' names and targets (channels left as
    // new are skipped). The weight controllers are references, which the scene saves
    // and sets.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The switch, the channels' names and targets, and clones of the weight controllers.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* target) override;

private:
    class ChannelRestore;
    struct Channel {
        WStr name{L"- empty -"};
        std::vector<Point3> target;
    };

    static bool IsChannel(int ch) { return ch >= 0 && ch < kNumChannels; }
    // Records the channel's change when holding, then loads it.
    void EditChannel(int ch, Channel after);
    void LoadChannel(int ch, const Channel& c);
    // One saved channel, into its place.
    IOResult ReadChannel(ILoad* iload);

    std::array<Channel, kNumChannels> channels_;
    std::array<Control*, kNumChannels> weights_{};
};

}  // namespace host
