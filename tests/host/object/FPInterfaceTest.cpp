#include "host/object/FPInterface.h"

#include <gtest/gtest.h>

#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

enum { kScale, kCount, kGetSize, kSetSize };
constexpr EnumID kModes = 0;

// A mix-in published by a test class: the table is the whole description.
const FPInterfaceDesc kRigDesc(
    Interface_ID(0x45596D56, 0x1E847BFF), L"ITestRig", FP_MIXIN,
    {
        {kScale,
         L"Scale",
         TYPE_FLOAT,
         {{L"a", TYPE_INT},
          {L"b", TYPE_FLOAT},
          {L"factor", TYPE_FLOAT, FPValue(TYPE_FLOAT, 1.0f)}}},
        {kCount, L"Count", TYPE_VOID, {{L"count", ByRef(TYPE_INT)}, {L"which", TYPE_FPVALUE}}},
    },
    {{L"size", kGetSize, kSetSize, TYPE_WORLD}}, {{kModes, {{L"fast", 1}, {L"slow", 2}}}});

class RigTarget : public TestTarget, public FPMixinInterface {
public:
    using TestTarget::GetInterface;
    FPInterface* GetInterface(Interface_ID id) override {
        return id == kRigDesc.GetID() ? this : nullptr;
    }
    const FPInterfaceDesc* GetDesc() override { return &kRigDesc; }
    FPStatus _dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams* p) override {
        const auto& a = p->params;
        switch (fid) {
            case kScale:
                result.Load(TYPE_FLOAT,
                            (float(*a[0].Get<int>()) + *a[1].Get<float>()) * *a[2].Get<float>());
                break;
            case kCount: {
                const FPValue& which = **a[1].Get<std::shared_ptr<FPValue>>();
                a[0].Get<FPValue*>()[0]->Load(TYPE_INT, which.Get<WStr>() ? 7 : 3);
                break;
            }
            case kGetSize:
                result.Load(TYPE_WORLD, size);
                break;
            case kSetSize:
                size = *a[0].Get<float>();
                break;
            default:
                return FPS_NO_SUCH_FUNCTION;
        }
        return FPS_OK;
    }
    float size = 2;
};

TEST(FunctionPublishing, CallsBindPositionalAndKeywordArguments) {
    auto* rig = new RigTarget;
    FPInterface* fpi = static_cast<Animatable*>(rig)->GetInterface(kRigDesc.GetID());
    ASSERT_EQ(fpi, rig);
    FPValue result;
    WStr error;
    // Names match in any case; an int is taken for a float; a keyword takes its default.
    ASSERT_EQ(
        Invoke(fpi, {L"scale", {FPValue(TYPE_INT, 2), FPValue(TYPE_INT, 3)}, {}}, 0, result, error),
        FPS_OK);
    EXPECT_EQ(*result.Get<float>(), 5.0f);
    ASSERT_EQ(Invoke(fpi,
                     {L"Scale",
                      {FPValue(TYPE_INT, 2), FPValue(TYPE_FLOAT, 0.5f)},
                      {{L"FACTOR", FPValue(TYPE_FLOAT, 4.0f)}}},
                     0, result, error),
              FPS_OK);
    EXPECT_EQ(*result.Get<float>(), 10.0f);
    // An out parameter, and an argument of any type.
    FPValue count;
    ASSERT_EQ(
        Invoke(
            fpi,
            {L"Count", {FPValue(ByRef(TYPE_INT), &count), FPValue(TYPE_STRING, WStr(L"all"))}, {}},
            0, result, error),
        FPS_OK);
    EXPECT_EQ(*count.Get<int>(), 7);

    const struct {
        FPCall call;
        FPStatus status;
        const wchar_t* error;
    } bad[] = {
        {{L"Scale", {FPValue(TYPE_INT, 2)}, {}},
         FPS_FAIL,
         L"Wrong number of arguments in call to Scale: got 1, expected 2"},
        {{L"Scale", {FPValue(TYPE_FLOAT, 2.0f), FPValue(TYPE_INT, 1)}, {}},
         FPS_FAIL,
         L"Wrong type for argument a in call to Scale"},
        {{L"Scale",
          {FPValue(TYPE_INT, 2), FPValue(TYPE_INT, 1)},
          {{L"speed", FPValue(TYPE_INT, 1)}}},
         FPS_FAIL,
         L"Unknown keyword argument speed in call to Scale"},
        {{L"Fly", {}, {}}, FPS_NO_SUCH_FUNCTION, L"No function Fly in interface ITestRig"},
    };
    for (const auto& b : bad) {
        EXPECT_EQ(Invoke(fpi, b.call, 0, result, error), b.status);
        EXPECT_EQ(error, WStr(b.error));
    }
    rig->DeleteMe();
}

TEST(FunctionPublishing, PropertiesEnumsAndCoreInterfaces) {
    auto* rig = new RigTarget;
    FPValue v;
    WStr error;
    ASSERT_EQ(SetProperty(rig, L"Size", 0, FPValue(TYPE_INT, 5), error), FPS_OK);
    ASSERT_EQ(GetProperty(rig, L"size", 0, v, error), FPS_OK);
    EXPECT_EQ(*v.Get<float>(), 5.0f);
    EXPECT_EQ(SetProperty(rig, L"size", 0, FPValue(TYPE_STRING, WStr(L"big")), error), FPS_FAIL);
    EXPECT_EQ(GetProperty(rig, L"weight", 0, v, error), FPS_NO_SUCH_FUNCTION);
    EXPECT_EQ(kRigDesc.EnumValue(kModes, WStr(L"SLOW")), 2);
    EXPECT_FALSE(kRigDesc.EnumValue(kModes, WStr(L"medium")));

    // A static interface is found by id and by name in any case while registered.
    struct Core : FPStaticInterface {
        const FPInterfaceDesc* GetDesc() override { return &kRigDesc; }
        FPStatus _dispatch_fn(FunctionID, TimeValue, FPValue&, FPParams*) override {
            return FPS_OK;
        }
    } core;
    RegisterCoreInterface(&core);
    EXPECT_TRUE(GetCOREInterface(WStr(L"itestrig")) == &core &&
                GetCOREInterface(kRigDesc.GetID()) == &core);
    UnregisterCoreInterface(&core);
    EXPECT_EQ(GetCOREInterface(WStr(L"ITestRig")), nullptr);
    rig->DeleteMe();
}

}  // namespace
}  // namespace host
