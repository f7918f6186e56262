#pragma once

#include "host/classes/HostClassDesc.h"
#include "host/object/Hold.h"
#include "host/object/IParamBlock2.h"
#include "host/object/SubObject.h"
#include "rig/RigIds.h"
#include "rig/RigSystem.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace zorvanta::test {

// A scene with the rig object registered as the catalogue registers it, seen through a
// recording window from the top, and a rig node whose points are a small figure made
// by hand (helper_size 100, so one unit of the figure is 100 world units):
//
//   0 pelvis (centre)       5 head (centre, under the pelvis)
//   1 r_clavicle  2 l_clavicle   under the pelvis, partners
//   3 r_upper_arm 4 l_upper_arm  under the clavicles, partners
//   6 root: fixed, no parent
//   7 head_tip: under the head, but moves with its parent's parent (the pelvis)
//   8 r_pad 9 l_pad: under the upper arms, partners, each moving with its partner's parent
class RigEditTest : public host::test::ViewTest {
protected:
    enum : int { kPelvis, kRClav, kLClav, kRArm, kLArm, kHead, kRoot, kTip, kRPad, kLPad };

    void SetUp() override {
        ViewTest::SetUp();
        static host::HostClassDesc<RigSystem> desc(L"Rig", L"Rig", RigSystem::kSuperClassId,
                                                   RigSystem::kClassId);
        static const bool described = (RigSystem::DescribeBlocks(&desc), true);
        (void)described;
        host::ClassRegistry::Instance().Register(&desc);
        rig = new RigSystem;
        node = ip->CreateObjectNode(rig, L"Rig");
        rig->points = Figure();
        rig->PointsEdited();
        host::theHold.ClearUndo();
    }

    static std::vector<RigPoint> Figure() {
        auto point = [](const wchar_t* name, int component, host::Point3 pos, int parent,
                        int mirror, uint32_t flags) {
            RigPoint p;
            p.name = host::WStr(name);
            p.component = component;
            p.pos = pos;
            p.parent = parent;
            p.mirror = mirror;
            p.flags = flags;
            return p;
        };
        return {
            point(L"pelvis", kCompSpine, {0, 0, 0.5f}, -1, -1, 0),
            point(L"r_clavicle", kCompArms, {-0.1f, 0, 0.8f}, kPelvis, kLClav,
                  kPointRight | kPointClavicle),
            point(L"l_clavicle", kCompArms, {0.1f, 0, 0.8f}, kPelvis, kRClav,
                  kPointLeft | kPointClavicle),
            point(L"r_upper_arm", kCompArms, {-0.2f, 0, 0.8f}, kRClav, kLArm, kPointRight),
            point(L"l_upper_arm", kCompArms, {0.2f, 0, 0.8f}, kLClav, kRArm, kPointLeft),
            point(L"head", kCompHead, {0, 0, 1.0f}, kPelvis, -1, 0),
            point(L"root", kCompSpine, {0, 0, 0}, -1, -1, kPointFixed),
            point(L"head_tip", kCompHead, {0, 0, 1.2f}, kHead, -1, kPointFollowGrandparent),
            point(L"r_pad", kCompFingers, {-0.3f, 0, 0.8f}, kRArm, kLPad,
                  kPointRight | kPointFollowMirrorParent),
            point(L"l_pad", kCompFingers, {0.3f, 0, 0.8f}, kLArm, kRPad,
                  kPointLeft | kPointFollowMirrorParent),
        };
    }

    host::Point3 Pos(int i) const { return rig->points[size_t(i)].pos; }
    void Set(host::ParamID id, int value) { rig->Block()->SetValue(id, 0, value); }
    int SelectedComponentParam() { return rig->Block()->GetInt(RIG_SELECTED_COMPONENT); }
    std::vector<int> Selected() const {
        std::vector<int> selected;
        for (size_t i = 0; i < rig->points.size(); ++i)
            if (rig->points[i].selected) selected.push_back(int(i));
        return selected;
    }
    // Enters the point level, as the modify panel does.
    void EditPoints() {
        host::XFormModes modes;
        rig->ActivateSubobjSel(RigSystem::kPointLevel, modes);
    }

    RigSystem* rig = nullptr;
    host::INode* node = nullptr;
};

}  // namespace zorvanta::test
