#include <gtest/gtest.h>

#include <vector>

#include "host/object/Animate.h"
#include "host/object/Interface.h"
#include "host/object/Notifications.h"

namespace host {
namespace {

class CoreInterface : public ::testing::Test {
protected:
    void TearDown() override { ip->Reset(); }
    Interface* ip = GetCOREInterface();
};

// Counts the broadcasts it hears; may drop a partner's registration from its callback.
struct Listener {
    std::vector<int> heard;
    Listener* dropOnHearing = nullptr;
    static void Proc(void* param, NotifyInfo* info) {
        auto* self = static_cast<Listener*>(param);
        self->heard.push_back(info->intcode);
        if (self->dropOnHearing) UnRegisterNotification(&Proc, self->dropOnHearing, info->intcode);
    }
};

TEST_F(CoreInterface, BroadcastsReachRegisteredCallbacksOnly) {
    Listener a, b;
    EXPECT_TRUE(RegisterNotification(&Listener::Proc, &a, NOTIFY_SELECTIONSET_CHANGED));
    EXPECT_FALSE(RegisterNotification(&Listener::Proc, &a, NOTIFY_SELECTIONSET_CHANGED));
    RegisterNotification(&Listener::Proc, &b, NOTIFY_SELECTIONSET_CHANGED);
    RegisterNotification(&Listener::Proc, &a, NOTIFY_SYSTEM_POST_RESET);
    a.dropOnHearing = &b;  // a removes b during the broadcast: b is not called
    BroadcastNotification(NOTIFY_SELECTIONSET_CHANGED);
    EXPECT_EQ(a.heard, std::vector<int>{NOTIFY_SELECTIONSET_CHANGED});
    EXPECT_TRUE(b.heard.empty());
    a.dropOnHearing = nullptr;
    ip->Reset();  // a scene reset broadcasts pre- and post-reset
    EXPECT_EQ(a.heard.back(), NOTIFY_SYSTEM_POST_RESET);
    EXPECT_TRUE(UnRegisterNotification(&Listener::Proc, &a, NOTIFY_SELECTIONSET_CHANGED));
    EXPECT_FALSE(UnRegisterNotification(&Listener::Proc, &b, NOTIFY_SELECTIONSET_CHANGED));
    NotificationRegistry::Instance().UnregisterAll(&Listener::Proc, &a);
    BroadcastNotification(NOTIFY_SYSTEM_POST_RESET);
    EXPECT_EQ(a.heard.size(), 2u);
}

struct TimeWatcher : TimeChangeCallback {
    std::vector<TimeValue> times;
    TimeWatcher* dropOnChange = nullptr;
    void TimeChanged(TimeValue t) override {
        times.push_back(t);
        if (dropOnChange) GetCOREInterface()->UnRegisterTimeChangeCallback(dropOnChange);
    }
};

TEST_F(CoreInterface, TimeChangesAreToldOnceAndOnlyOnChange) {
    TimeWatcher first, second;
    ip->RegisterTimeChangeCallback(&first);
    ip->RegisterTimeChangeCallback(&first);
    ip->RegisterTimeChangeCallback(&second);
    const int redraws = ip->RedrawCount();
    ip->SetTime(160);
    ip->SetTime(160);  // no change, no call
    EXPECT_EQ(first.times, std::vector<TimeValue>{160});
    EXPECT_EQ(ip->RedrawCount(), redraws + 1);
    first.dropOnChange = &second;
    ip->SetTime(320, false);
    EXPECT_EQ(second.times, std::vector<TimeValue>{160});
    ip->UnRegisterTimeChangeCallback(&first);
    ip->SetTime(0);
    EXPECT_EQ(first.times.size(), 2u);
}

// Bad values are refused and leave the settings alone; a reset restores the defaults.
TEST_F(CoreInterface, SettingsRefuseBadValuesAndResetRestoresThem) {
    EXPECT_FALSE(ip->SetAnimRange(Interval(100, 50)));
    EXPECT_EQ(ip->GetAnimRange(), Interval(0, 16000));  // 100 frames at 30 a second
    EXPECT_FALSE(ip->SetFrameRate(7));  // 4800 ticks are no whole number of its frames
    EXPECT_FALSE(ip->SetFrameRate(0));
    EXPECT_TRUE(ip->SetFrameRate(24));
    EXPECT_EQ(ip->GetTicksPerFrame(), 200);
    ip->SetRefCoordSys(COORDS_GIMBAL);
    ip->SetRefCoordSys(42);
    EXPECT_EQ(ip->GetRefCoordSys(), 6);
    ip->SetCommandPanelTaskMode(TASK_MODE_UTILITY);
    ip->SetCommandPanelTaskMode(0);
    EXPECT_EQ(ip->GetCommandPanelTaskMode(), 6);
    AnimateOn();
    ip->Reset();
    EXPECT_TRUE(ip->GetFrameRate() == 30 && ip->GetRefCoordSys() == COORDS_VIEW && !Animating());
}

TEST_F(CoreInterface, GammaRaisesColoursOnlyWhileOn) {
    const Point3 grey(0.5f, 2.0f, -1.0f);
    EXPECT_EQ(ip->GammaCorrect(grey), grey);  // off in a new scene
    EXPECT_FALSE(ip->SetGamma(true, 0.0f));
    EXPECT_FALSE(ip->IsGammaOn());
    ASSERT_TRUE(ip->SetGamma(true, 2.0f));
    const Point3 corrected = ip->GammaCorrect(grey);
    EXPECT_FLOAT_EQ(corrected.x, 0.25f);
    EXPECT_FLOAT_EQ(corrected.y, 1.0f);  // clamped before the power
    EXPECT_FLOAT_EQ(corrected.z, 0.0f);
    ip->Reset();
    EXPECT_TRUE(!ip->IsGammaOn() && ip->GetGamma() == Interface::kDefaultGamma);
}

TEST_F(CoreInterface, RedrawsNestAndPromptsStack) {
    const int redraws = ip->RedrawCount();
    ip->DisableSceneRedraw();
    ip->DisableSceneRedraw();
    ip->EnableSceneRedraw();
    ip->RedrawViews(0);  // still disabled once
    ip->EnableSceneRedraw();
    ip->EnableSceneRedraw();  // an extra enable does not go below zero
    ip->ForceCompleteRedraw();
    ip->DisableSceneRedraw();  // so one disable is enough again
    ip->RedrawViews(0);
    ip->EnableSceneRedraw();
    EXPECT_EQ(ip->RedrawCount(), redraws + 1);

    StatusLine& status = ip->Status();
    status.PushPrompt(WStr(L"Select Object"));
    status.PushPrompt(WStr(L"Transfering Animation"));
    status.DisplayTempPrompt(WStr(L"Scene Baked"));
    status.PopPrompt();
    EXPECT_TRUE(status.Prompt() == WStr(L"Select Object"));
    EXPECT_TRUE(status.ProgressStart(WStr(L"Baking Scene")));
    EXPECT_FALSE(status.ProgressStart(WStr(L"Other")));
    status.ProgressUpdate(140);
    EXPECT_EQ(status.ProgressPercent(), 100);
}

}  // namespace
}  // namespace host
