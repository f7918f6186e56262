#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "host/object/Interface.h"
#include "host/object/QuietDialogService.h"
#include "host/object/ScriptedDialogService.h"

namespace host {
namespace {

using Kind = ScriptedDialogService::RequestKind;

const std::vector<FileFilter> kAnimFilters = {{L"Animation Files (*.anim)", L"*.anim"},
                                              {L"Pose Files (*.pose)", L"*.pose"}};

FileDialogRequest SaveAnimation(int filterIndex = 1, DialogOptions* options = nullptr) {
    return {FileDialogKind::SAVE,
            L"Save Animation File",
            kAnimFilters,
            L"anim",
            {},
            filterIndex,
            options};
}

TEST(DialogService, EnterPressesTheDefaultButtonOfTheSet) {
    struct Case {
        unsigned flags;
        int answer;
    };
    const std::vector<Case> cases = {
        {MB_OK, IDOK},
        {MB_YESNO | MB_ICONQUESTION, IDYES},  // 36, the bake confirmation
        {MB_YESNO | MB_DEFBUTTON2, IDNO},
        {MB_YESNOCANCEL | MB_DEFBUTTON3 | MB_ICONWARNING, IDCANCEL},
        {MB_OKCANCEL | MB_DEFBUTTON3, IDOK},  // no third button: the first
        {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, IDRETRY},
        {0xE, IDOK},  // no such set: a plain OK box
    };
    for (const Case& c : cases)
        EXPECT_EQ(DialogService::DefaultAnswer(c.flags), c.answer) << c.flags;
}

TEST(DialogService, QuietDialogsTakeTheDefaultAndSayWhatTheyWouldHaveShown) {
    std::ostringstream out;
    QuietDialogService quiet(out);
    EXPECT_EQ(quiet.MessageBox(L"Bake all?", L"Confirm Bake", MB_YESNO | MB_ICONQUESTION), IDYES);
    EXPECT_EQ(quiet.MessageBox(L"Invalid selected UI control", L"", MB_OK), IDOK);
    DialogOptions options;
    options.AddCheck(L"Bake", true);
    FileDialogRequest request = SaveAnimation(2, &options);
    EXPECT_EQ(quiet.GetFileName(request), std::nullopt);
    EXPECT_EQ(request.filterIndex, 2);
    EXPECT_EQ(options.Value(0), 1);
    quiet.MessageBeep(MB_ICONASTERISK);
    EXPECT_EQ(out.str(),
              "Confirm Bake: Bake all? [Yes]\n"
              "Invalid selected UI control\n"
              "Save Animation File: no file chosen in quiet mode\n");
}

TEST(DialogService, ScriptedAnswersAreTakenInOrderAndRequestsRecorded) {
    ScriptedDialogService dialogs;
    dialogs.AnswerFile(L"/rigs/walk");
    dialogs.AnswerButton(IDNO);
    dialogs.AnswerFile(L"/rigs/v1.2/pose.pose", 2);
    dialogs.AnswerCancel();

    FileDialogRequest first = SaveAnimation();
    EXPECT_EQ(dialogs.GetFileName(first), WStr(L"/rigs/walk.anim"));  // the default extension
    EXPECT_EQ(dialogs.MessageBox(L"Bake?", L"Confirm Bake", 36), IDNO);
    FileDialogRequest second = SaveAnimation(7);  // brought into the list
    EXPECT_EQ(dialogs.GetFileName(second), WStr(L"/rigs/v1.2/pose.pose"));
    EXPECT_EQ(second.filterIndex, 2);
    FileDialogRequest third = {FileDialogKind::OPEN,
                               L"Load Pose Kit File",
                               {{L"Pose Kit Files (*.pkit)", L"*.pkit"}},
                               {},
                               {},
                               0,
                               nullptr};
    EXPECT_EQ(dialogs.GetFileName(third), std::nullopt);
    dialogs.MessageBeep();

    const auto& requests = dialogs.Requests();
    ASSERT_EQ(requests.size(), 5u);
    EXPECT_EQ(requests[0].kind, Kind::SAVE_FILE);
    EXPECT_EQ(requests[0].title, WStr(L"Save Animation File"));
    EXPECT_EQ(requests[0].filters, kAnimFilters);
    EXPECT_EQ(requests[0].defaultExt, WStr(L"anim"));
    EXPECT_EQ(requests[1].kind, Kind::MESSAGE_BOX);
    EXPECT_EQ(requests[1].text, WStr(L"Bake?"));
    EXPECT_EQ(requests[1].flags, 36u);
    EXPECT_EQ(requests[2].filterIndex, 2);  // as the dialog opened
    EXPECT_EQ(requests[3].kind, Kind::OPEN_FILE);
    EXPECT_EQ(requests[3].filterIndex, 1);
    EXPECT_EQ(requests[4].kind, Kind::BEEP);
    EXPECT_EQ(requests[4].flags, MB_SIMPLEBEEP);
    EXPECT_TRUE(dialogs.Misses().empty());
    EXPECT_EQ(dialogs.PendingAnswers(), 0u);
}

TEST(DialogService, OptionsComeBackOnOkOnly) {
    DialogOptions options;
    const int skeleton = options.AddChoice(L"Skeleton", {L"Mixamo", L"Rokoko"}, 5);  // stale
    const int start = options.AddNumber(L"Start Frame", 0, -100000, 100000);
    const int bake = options.AddCheck(L"Bake", false);
    EXPECT_EQ(options.Value(skeleton), 1);
    EXPECT_FALSE(options.SetValue(start, 100001));
    EXPECT_FALSE(options.SetValue(bake, 2));
    EXPECT_FALSE(options.SetValue(-1, 0));

    ScriptedDialogService dialogs;
    dialogs.AnswerFile(L"walk.fbx", 1, {{L"Skeleton", 0}, {L"Start Frame", 30}, {L"Bake", 1}});
    dialogs.AnswerFile(L"run.fbx", 0, {{L"Start Frame", 10}, {L"Bake", 2}});  // 2 is no value
    dialogs.AnswerFile(L"jump.fbx", 0, {{L"Relative", 1}});                   // no such option
    dialogs.AnswerFile(L"jump.fbx", 4);                                       // no such filter
    FileDialogRequest request = {FileDialogKind::OPEN,
                                 L"Import Animation / Mocap",
                                 {{L"Norvelt (*.fbx)", L"*.fbx"}, {L"Biped (*.bip)", L"*.bip"}},
                                 {},
                                 {},
                                 2,
                                 &options};
    EXPECT_EQ(dialogs.GetFileName(request), WStr(L"walk.fbx"));
    EXPECT_EQ(request.filterIndex, 1);
    EXPECT_EQ(options.Value(skeleton), 0);
    EXPECT_EQ(options.Value(start), 30);
    EXPECT_EQ(options.Value(bake), 1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(dialogs.GetFileName(request), std::nullopt);
        EXPECT_EQ(options.Value(start), 30);  // an answer that does not fit changes nothing
        EXPECT_EQ(request.filterIndex, 1);
    }
    EXPECT_EQ(dialogs.Misses().size(), 3u);
}

TEST(DialogService, MisfitAnswersFallBackToTheDefaultAndAreNoted) {
    ScriptedDialogService dialogs;
    dialogs.AnswerButton(IDYES);
    dialogs.AnswerFile(L"x.anim");
    FileDialogRequest request = SaveAnimation();
    EXPECT_EQ(dialogs.MessageBox(L"Only OK here", L"Note", MB_OK), IDOK);  // Yes is not shown
    EXPECT_EQ(dialogs.MessageBox(L"Sure?", L"Question", MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(dialogs.PendingAnswers(), 1u);  // the file answer waits for a file dialog
    EXPECT_EQ(dialogs.GetFileName(request), WStr(L"x.anim"));
    EXPECT_EQ(dialogs.GetFileName(request), std::nullopt);  // nothing left: cancelled
    EXPECT_EQ(dialogs.Misses(),
              (std::vector<WStr>{L"Note: the box has no such button",
                                 L"Question: the next answer is for another kind of dialog",
                                 L"Save Animation File: no answer left"}));
}

TEST(DialogService, QuietModeOverridesTheInstalledDialogs) {
    Interface* ip = GetCOREInterface();
    DialogService& quiet = ip->GetDialogService();
    ScriptedDialogService scripted;
    ip->SetDialogService(&scripted);
    EXPECT_EQ(&ip->GetDialogService(), &scripted);
    ip->SetQuietMode(true);
    EXPECT_EQ(&ip->GetDialogService(), &quiet);
    ip->SetQuietMode(false);
    ip->SetDialogService(nullptr);
    EXPECT_EQ(&ip->GetDialogService(), &quiet);
}

}  // namespace
}  // namespace host
