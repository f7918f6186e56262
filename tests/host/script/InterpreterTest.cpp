#include <gtest/gtest.h>

#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/script/CycleCollector.h"
#include "host/script/ExecuteScript.h"
#include "host/script/Interpreter.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"

namespace host::script {
namespace {

// A setting outside the scripts, changed through the hold like any scene edit.
int gSetting = 0;

class SettingRestore : public RestoreObj {
public:
    explicit SettingRestore(int old) : old_(old), new_(gSetting) {}
    void Restore(bool) override { gSetting = old_; }
    void Redo() override { gSetting = new_; }

private:
    int old_, new_;
};

class InterpreterTest : public testing::Test {
protected:
    void SetUp() override {
        theHold.ClearUndo();
        gSetting = 0;
        in.DefinePrimitive(L"setsetting", [](CallArgs& args) {
            args.CheckCount(L"setSetting", 1);
            const int old = gSetting;
            gSetting = int(args[0].AsInteger());
            theHold.Put(new SettingRestore(old));
            return Value::Ok();
        });
    }
    void TearDown() override { theHold.ClearUndo(); }

    Value Run(const wchar_t* text) {
        Value result;
        ScriptFailure failure;
        EXPECT_TRUE(in.Run(text, result, failure)) << WStr(failure.Report()).ToUtf8();
        return result;
    }
    ScriptFailure RunFailing(const wchar_t* text) {
        Value result;
        ScriptFailure failure;
        EXPECT_FALSE(in.Run(text, result, failure));
        return failure;
    }

    Interpreter in;
};

TEST_F(InterpreterTest, UndoContextIsOneNamedStepMergedIntoAnOpenHold) {
    Run(L"undo \"Two Changes\" on (setSetting 1; setSetting 2)");
    EXPECT_EQ(gSetting, 2);
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Two Changes"));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(gSetting, 0);

    theHold.Begin();
    Run(L"undo \"Inner\" on (setSetting 7)");
    theHold.Accept(L"Outer");
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Outer"));

    // Without undo, nothing is recorded.
    Run(L"undo off (setSetting 8)");
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
}

TEST_F(InterpreterTest, ErrorInsideUndoTakesBackWhatTheBodyDid) {
    Run(L"setSetting 3");
    const Value caught =
        Run(L"try (undo \"Bad\" on (setSetting 5; throw \"stop\")) catch "
            L"(getCurrentException())");
    ASSERT_EQ(caught.tag(), Tag::String);
    EXPECT_EQ(TextOf(caught), L"stop");
    EXPECT_EQ(gSetting, 3);
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
}

TEST_F(InterpreterTest, AnimateAndAtTimeHoldOnlyInsideTheirBody) {
    in.DefinePrimitive(L"probe", [](CallArgs& args) {
        return MakeArray(
            {Value::Bool(Animating()), Value::Integer(args.interpreter.CurrentTime())});
    });
    AnimateOff();
    const int tpf = GetCOREInterface()->GetTicksPerFrame();
    const Value inside = Run(L"animate on (at time 10 (probe()))");
    const auto& items = inside.As<ArrayObject>().items;
    EXPECT_TRUE(items[0].AsBool());
    EXPECT_EQ(items[1].AsInteger(), 10 * tpf);
    const Value after = Run(L"probe()");
    EXPECT_FALSE(after.As<ArrayObject>().items[0].AsBool());
    EXPECT_EQ(after.As<ArrayObject>().items[1].AsInteger(), GetCOREInterface()->GetTime());
    // An error in the body still restores the switch.
    RunFailing(L"animate on (throw \"x\")");
    EXPECT_FALSE(Animating());
}

TEST_F(InterpreterTest, CppErrorsCarryTheTextAndThePlaceOfTheCall) {
    in.DefinePrimitive(L"createikfksolver", [](CallArgs& args) -> Value {
        if (args.Count() != 2) throw ArgCountError(L"CreateIKFKSolver", 2, args.Count());
        throw RuntimeError(L"Expected a Node for the first argument, in function CreateIKFKSolver");
    });
    ScriptFailure failure = RunFailing(L"x = 1\n  CreateIKFKSolver x 2");
    EXPECT_EQ(failure.message,
              L"Expected a Node for the first argument, in function CreateIKFKSolver");
    EXPECT_EQ(failure.line, 2);
    EXPECT_EQ(failure.column, 3);
    failure = RunFailing(L"CreateIKFKSolver 1");
    EXPECT_EQ(failure.message, L"Argument count error: CreateIKFKSolver wanted 2, got 1");
    // The interpreter is usable after a failure, with its globals.
    EXPECT_EQ(Run(L"x + 1").AsInteger(), 2);
}

// Text that cannot be read is refused whole, with what was wrong and where.
TEST(ScriptSyntax, ErrorsNameTheProblemAndItsPlace) {
    struct Case {
        const wchar_t* text;
        const wchar_t* message;
        int line, column;
    };
    const Case cases[] = {
        {L"x = \"open", L"unterminated string", 1, 5},
        {L"x = \"bad \\q escape\"", L"unknown escape \\q in string", 1, 10},
        {L"/* never closed", L"unterminated comment", 1, 1},
        {L"a = 1\nb = a +\n", L"expected an expression, got end of script", 3, 1},
        {L"if true print 1", L"expected \"then\", got \"print\"", 1, 9},
        {L"for i = 1 do 2", L"expected \"to\", got \"do\"", 1, 11},
        {L"fn f a k:1 b = a", L"positional parameter after keyword parameters", 1, 12},
        {L"f 1 = 2", L"cannot assign to this expression", 1, 5},
        {L"return 1", L"\"return\" outside a function", 1, 1},
        {L"x = [1]", L"a point has 2 or 3 components", 1, 5},
        {L"x = 1 ` 2", L"unexpected character '`'", 1, 7},
        {L"try (1)\n2", L"expected \"catch\", got a number", 2, 1},
    };
    for (const Case& c : cases) {
        Interpreter in;
        Value result;
        ScriptFailure failure;
        EXPECT_FALSE(in.Run(c.text, result, failure)) << WStr(c.text).ToUtf8();
        EXPECT_TRUE(failure.syntax);
        EXPECT_EQ(failure.message, c.message) << WStr(c.text).ToUtf8();
        EXPECT_EQ(failure.line, c.line) << WStr(c.text).ToUtf8();
        EXPECT_EQ(failure.column, c.column) << WStr(c.text).ToUtf8();
    }
}

TEST(ExecuteTarnixScriptScript, GivesTheLastValueAndReportsFailures) {
    FPValue result;
    ASSERT_TRUE(ExecuteTarnixScriptScript(L"shared = 40\nshared + 2", false, &result));
    ASSERT_NE(result.Get<int>(), nullptr);
    EXPECT_EQ(*result.Get<int>(), 42);
    ASSERT_TRUE(ExecuteTarnixScriptScript(L"shared / 8.0", false, &result));
    EXPECT_FLOAT_EQ(*result.Get<float>(), 5.0f);

    GetCOREInterface()->ClearListener();
    EXPECT_FALSE(ExecuteTarnixScriptScript(L"1 / 0", true, &result, false));
    EXPECT_EQ(result.type, TYPE_VOID);
    EXPECT_TRUE(GetCOREInterface()->ListenerText().isNull());
    EXPECT_FALSE(ExecuteTarnixScriptScript(L"1 / 0", false, nullptr));
    EXPECT_EQ(GetCOREInterface()->ListenerText(),
              WStr(L"-- Runtime error: Divide by zero (line 1, column 3)\n"));
}

// Loops of values that only loops hold go when a run ends: an array holding itself, two
// arrays holding each other, a local function calling itself through its cell. A loop
// that a variable holds stays whole and usable. Leak detection checks the rest.
TEST_F(InterpreterTest, LoopsOfValuesGoWhenNothingElseHoldsThem) {
    const size_t before = CycleCollector::Count();
    Run(L"fn loops = (local a = #(), b = #(a); append a a; append a b\n"
        L"  fn countDown n = if n < 1 then 0 else countDown (n - 1)\n  countDown 3)\n"
        L"for i = 1 to 20 do loops()");
    EXPECT_EQ(CycleCollector::Count(), before + 1) << "only the global function stays";
    Run(L"kept = #(1); append kept kept");
    EXPECT_EQ(Run(L"kept[2][2][1]").AsInteger(), 1);
    Run(L"kept = undefined");
    EXPECT_EQ(CycleCollector::Count(), before + 1);
}

}  // namespace
}  // namespace host::script
