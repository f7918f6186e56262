#include <gtest/gtest.h>

#include "host/classes/BlockObject.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/PositionXYZ.h"
#include "host/object/FPInterface.h"
#include "host/object/HelperObject.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/script/ExecuteScript.h"
#include "host/script/Interpreter.h"
#include "host/script/ScriptError.h"
#include "host/script/ScriptRegistry.h"

namespace host::script {
namespace {

enum : ParamID { kReferences = 30, kLabel = 31 };
enum : FunctionID { kTwice, kGetLabel, kSetLabel, kPick };

const FPInterfaceDesc kActionDesc(
    Interface_ID(0x7E57AC71, 0x5C817), L"ITestAction", FP_MIXIN,
    {{kTwice,
      L"Twice",
      TYPE_FLOAT,
      {{L"x", TYPE_FLOAT}, {L"times", TYPE_INT, FPValue(TYPE_INT, 2)}}},
     {kPick, L"Pick", TYPE_INT, {{L"mode", TYPE_ENUM}}}},
    {{L"label", kGetLabel, kSetLabel, TYPE_STRING}}, {{0, {{L"first", 10}, {L"second", 20}}}});

ClassDesc2* TestActionDesc();

// A helper object with a table of references and a label, publishing a mix-in: what
// the panel's action object looks like to scripts.
class TestAction : public BlockObject<HelperObject>, public FPMixinInterface {
public:
    explicit TestAction(bool loading = false) : BlockObject(TestActionDesc(), loading) {}
    Class_ID ClassID() override { return Class_ID(0x7E57AC71, 1); }
    WStr GetClassName() override { return WStr(L"TestAction"); }
    using BlockObject::GetInterface;
    FPInterface* GetInterface(Interface_ID id) override {
        return id == kActionDesc.GetID() ? this : nullptr;
    }
    const FPInterfaceDesc* GetDesc() override { return &kActionDesc; }
    FPStatus _dispatch_fn(FunctionID fid, TimeValue t, FPValue& result, FPParams* p) override {
        switch (fid) {
            case kTwice:
                result.Load(TYPE_FLOAT,
                            *p->params[0].Get<float>() * float(*p->params[1].Get<int>()));
                return FPS_OK;
            case kPick:
                result.Load(TYPE_INT, *p->params[0].Get<int>());
                return FPS_OK;
            case kGetLabel:
                result.Load(TYPE_STRING, pblock_->GetStr(kLabel, t));
                return FPS_OK;
            case kSetLabel:
                if (p->params[0].Get<WStr>()->isNull())
                    throw RuntimeError(L"Invalid Variable Name ");
                pblock_->SetValue(kLabel, t, p->params[0].Get<WStr>()->data());
                return FPS_OK;
            default:
                return FPS_NO_SUCH_FUNCTION;
        }
    }
    IParamBlock2* Block() { return pblock_; }
};

ClassDesc2* TestActionDesc() {
    static HostClassDesc<TestAction> desc(L"TestAction", L"TestAction", HELPER_CLASS_ID,
                                          Class_ID(0x7E57AC71, 1));
    static ParamBlockDesc2 block(0, L"action", P_AUTO_CONSTRUCT, 0, &desc,
                                 {{kReferences, L"references", TableOf(TYPE_REFTARG), 0, 0, {}},
                                  {kLabel, L"label", TYPE_STRING, 0, 0, {}}});
    return &desc;
}

// The static interface the toolkit publishes as `Zorvanta`, reduced to the property
// the assembled action text reads.
enum : FunctionID { kGetCurrentAction };
const FPInterfaceDesc kGlobalDesc(Interface_ID(0x7E57AC71, 0x5C818), L"Zorvanta", FP_CORE, {},
                                  {{L"currentUIAction", kGetCurrentAction, FP_NO_FUNCTION,
                                    TYPE_REFTARG}});

class TestGlobal : public FPStaticInterface {
public:
    const FPInterfaceDesc* GetDesc() override { return &kGlobalDesc; }
    FPStatus _dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams*) override {
        if (fid != kGetCurrentAction) return FPS_NO_SUCH_FUNCTION;
        result.Load(TYPE_REFTARG, static_cast<Animatable*>(current));
        return FPS_OK;
    }
    TestAction* current = nullptr;
};

class SceneBindingTest : public testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        ClassRegistry::Instance().Register(TestActionDesc());
        ScriptRegistry::Instance().RegisterMixin(&kActionDesc);
        RegisterCoreInterface(&global);
        ip->Reset();
        ip->ClearListener();
    }
    void TearDown() override {
        UnregisterCoreInterface(&global);
        ip->Reset();
    }
    std::wstring Run(const wchar_t* text) {
        ip->ClearListener();
        Value result;
        ScriptFailure failure;
        if (!in.Run(text, result, failure)) return L"error: " + failure.Report();
        return ip->ListenerText().str();
    }

    Interface* ip = GetCOREInterface();
    TestGlobal global;
    Interpreter in;
};

TEST_F(SceneBindingTest, NodePropertiesReadAndWriteTheScene) {
    EXPECT_EQ(Run(L"h = Point name:\"Head\"\nc = Point name:\"Child\"\nc.parent = h\n"
                  L"h.position = [1, 2, 3]\nprint c.parent.name\nprint h.children.count\n"
                  L"print $Child.position\nprint $child.position.z\nprint (classOf h)\n"
                  L"print (superClassOf h)\nh.wirecolor = [255, 0, 10]\nprint h.wirecolor\n"
                  L"print h.baseObject.size\nh.size = 5\nprint h.baseObject.size"),
              L"\"Head\"\n1\n[1.0,2.0,3.0]\n3.0\npoint\n#Helper\n[255.0,0.0,10.0]\n20.0\n5.0\n");
    EXPECT_EQ(
        Run(L"select $Child\nprint selection\nprint (tarnixOps.getNodeByHandle $Head.handle)\n"
            L"print sliderTime"),
        L"#($Child)\n$Head\n0\n");
    EXPECT_EQ(Run(L"h = $Head\ndelete h\nprint (isValidNode h)\n"
                  L"try (h.name) catch (print (getCurrentException()))"),
              L"false\n\"Attempt to access deleted scene object\"\n");
    EXPECT_EQ(Run(L"$Nobody"),
              L"error: -- Runtime error: No node named $Nobody (line 1, column 1)");
}

TEST_F(SceneBindingTest, SubAnimsReadAndWriteTracksAndParameters) {
    EXPECT_EQ(Run(L"p = Point name:\"P\"\ns = getSubAnim (getSubAnim p.baseObject 1).object 1\n"
                  L"print s.value\ns.value = 7.5\nprint p.size\n"
                  L"pos = getSubAnim p.controller 1\npos.value = [4, 5, 6]\nprint p.position\n"
                  L"print (getSubAnim p.controller 1).controller.value"),
              L"20.0\n7.5\n[4.0,5.0,6.0]\n[4.0,5.0,6.0]\n");
    EXPECT_EQ(Run(L"getSubAnim $P 0"),
              L"error: -- Runtime error: getSubAnim: index out of range: 0 (line 1, column 1)");
}

// animate on keys the controllers at the time of `at time`; the scene's own time stays.
TEST_F(SceneBindingTest, AnimateAtTimeKeysTheTrack) {
    EXPECT_EQ(Run(L"p = Point name:\"P\"\n"
                  L"animate on (at time 0 (p.position = [0, 0, 0]); at time 10 (p.position = "
                  L"[10, 0, 0]))\n"
                  L"print (at time 5 p.position)\nprint p.position\nprint sliderTime"),
              L"[5.0,0.0,0.0]\n[0.0,0.0,0.0]\n0\n");
}

TEST_F(SceneBindingTest, PropertySetInsideUndoIsOneStep) {
    Run(L"Point name:\"Head\"");
    theHold.ClearUndo();
    EXPECT_EQ(Run(L"undo \"Rename\" on ($Head.name = \"Neck\"; $Neck.position = [0, 0, 9])"), L"");
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Rename"));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(Run(L"print $Head.position"), L"[0.0,0.0,0.0]\n");
}

// The text a panel action assembles for a node, a track and a constant, word for word.
TEST_F(SceneBindingTest, AssembledActionTextRunsWithItsBindings) {
    Run(L"Point name:\"Head\"\nPoint name:\"Holder\"");
    INode* head = ip->GetINodeByName(L"Head");
    auto* xyz = new PositionXYZ;
    ASSERT_TRUE(head->GetTMController()->SetPositionController(xyz));
    Point3 p(1, 2, 7.5f);
    xyz->SetValue(0, &p);
    auto* action = new TestAction;
    ip->CreateObjectNode(action, L"Action");
    action->Block()->SetCount(kReferences, 2);
    action->Block()->SetValue(kReferences, 0, head, 0);
    action->Block()->SetValue(kReferences, 0, xyz, 1);
    global.current = action;

    const wchar_t* text =
        L"try(\nundo \"UI Action\" on(\n"
        L"head=Zorvanta.currentUIAction.references[1]\n"
        L"w=(getSubAnim Zorvanta.currentUIAction.references[2] 3).value\n"
        L"k=(2.5)\n"
        L"print w\n"
        L"\n)\n)catch(messagebox (getCurrentException()) title:\"UI Action\")";
    ip->ClearListener();
    ASSERT_TRUE(ExecuteTarnixScriptScript(text, false, nullptr));
    EXPECT_EQ(ip->ListenerText(), WStr(L"7.5\n"));
    // The variables stay bound after the run.
    FPValue result;
    ASSERT_TRUE(ExecuteTarnixScriptScript(L"head.name + \" \" + k", false, &result));
    EXPECT_EQ(*result.Get<WStr>(), WStr(L"Head 2.5"));
}

TEST_F(SceneBindingTest, PublishedInterfacesAreReachedThroughTheirObjects) {
    auto* action = new TestAction;
    ip->CreateObjectNode(action, L"Action");
    EXPECT_EQ(Run(L"a = $Action\nprint (a.Twice 4)\nprint (a.baseObject.twice 1.5 times:4)\n"
                  L"a.label = \"go\"\nprint a.label\nprint (a.Pick #second)\n"
                  L"print Zorvanta.currentUIAction"),
              L"8.0\n6.0\n\"go\"\n20\nundefined\n");
    EXPECT_EQ(Run(L"try ($Action.label = \"\") catch (print (getCurrentException()))"),
              L"\"Invalid Variable Name \"\n");
    EXPECT_EQ(
        Run(L"$Action.Twice 1 2"),
        L"error: -- Runtime error: Wrong number of arguments in call to Twice: got 2, expected 1 "
        L"(line 1, column 1)");
}

TEST_F(SceneBindingTest, RegisteredFunctionsRaiseTheirTexts) {
    ScriptRegistry::Instance().RegisterFunction(L"CreateIKFKSolver", [](CallArgs& args) -> Value {
        if (args.Count() != 2) throw ArgCountError(L"CreateIKFKSolver", 2, args.Count());
        if (args[0].tag() != Tag::Node)
            throw RuntimeError(
                L"Expected a Node for the first argument, in function CreateIKFKSolver");
        return Value::Bool(true);
    });
    Run(L"Point name:\"A\"");
    EXPECT_EQ(Run(L"print (CreateIKFKSolver $A $A)"), L"true\n");
    EXPECT_EQ(Run(L"createikfksolver 1 2"),
              L"error: -- Runtime error: Expected a Node for the first argument, in function "
              L"CreateIKFKSolver (line 1, column 1)");
    EXPECT_EQ(
        Run(L"x = 1\nCreateIKFKSolver x"),
        L"error: -- Runtime error: Argument count error: CreateIKFKSolver wanted 2, got 1 (line 2, "
        L"column 1)");
    ScriptRegistry::Instance().UnregisterFunction(L"CreateIKFKSolver");
}

TEST_F(SceneBindingTest, ImporterSettingsAreRecordedInOrder) {
    auto& params = ScriptRegistry::Instance().ImporterParams();
    params.clear();
    ASSERT_TRUE(
        ExecuteTarnixScriptScript(L"FBXImporterSetParam \"Mode\" \"create\"\n"
                                  L"FBXImporterSetParam \"Skin\" false\n"
                                  L"FBXImporterSetParam \"BakeAnimationLayers\" true"));
    ASSERT_EQ(params.size(), 3u);
    EXPECT_EQ(params[0].first, L"Mode");
    EXPECT_EQ(*params[0].second.Get<WStr>(), WStr(L"create"));
    EXPECT_EQ(*params[1].second.Get<int>(), 0);
    EXPECT_EQ(params[2].first, L"BakeAnimationLayers");
    params.clear();
}

}  // namespace
}  // namespace host::script
