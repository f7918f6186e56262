#include "host/object/IParamBlock2.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <tuple>

#include "host/classes/BezierFloat.h"
#include "host/classes/HostClasses.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

enum : ParamID { pSize, pCount, pOn, pTint, pCorner, pOffset, pLabel, pTarget, pGuarded };

// Counts what its parameter's accessor sees.
struct CountingAccessor : PBAccessor {
    int gets = 0, sets = 0, setsInUndo = 0;
    void Get(PB2Value& v, ReferenceMaker*, ParamID, int, TimeValue, Interval&) override {
        ++gets;
        v.f += 100;  // a read may change what the caller sees
    }
    void Set(PB2Value&, ReferenceMaker*, ParamID, int, TimeValue) override {
        ++sets;
        setsInUndo += theHold.RestoreOrRedoing();
    }
} guardedAccessor;

struct EvenOnly : PBValidator {
    bool Validate(PB2Value& v) override { return v.i % 2 == 0; }
} evenOnly;

class OwnerDesc : public ClassDesc2 {
public:
    int IsPublic() override { return 0; }
    Animatable* Create(bool) override;
    const wchar_t* ClassName() override { return L"Owner"; }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(0x12345, 0x678); }
    const wchar_t* Category() override { return L""; }
} ownerDesc;

// The definition is a table, as every class's is.
ParamBlockDesc2 ownerBlock(
    0, L"params", P_AUTO_CONSTRUCT, 0, &ownerDesc,
    {
        {pSize, L"size", TYPE_WORLD, P_ANIMATABLE, 0, {.f = 2.0f}},
        {pCount, L"count", TYPE_INT, 0, 0, {.i = 4}, std::nullopt, nullptr, &evenOnly},
        {pOn, L"on", TYPE_BOOL, 0, 0, {.i = 1}},
        {pTint, L"tint", TYPE_RGBA, 0, 0, {.p = {1, 0, 0}}},
        {pCorner, L"corner", TYPE_POINT2, 0, 0, {}},
        {pOffset, L"offset", TYPE_MATRIX3, 0, 0, {}},
        {pLabel, L"label", TYPE_STRING, 0, 0, {}},
        {pTarget, L"target", TYPE_REFTARG, 0, 0, {}},
        {pGuarded, L"guarded", TYPE_FLOAT, P_ANIMATABLE, 0, {}, std::nullopt, &guardedAccessor},
    });

class Owner : public ReferenceTarget {
public:
    static inline int live = 0;
    Owner() {
        ++live;
        ownerDesc.MakeAutoParamBlocks(this);
    }
    ~Owner() override { --live; }
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int) override { return pb; }
    int NumParamBlocks() override { return 1; }
    IParamBlock2* GetParamBlock(int) override { return pb; }
    int NumSubs() override { return 1; }
    Animatable* SubAnim(int) override { return pb; }
    void SetReference(int, ReferenceTarget* t) override { pb = static_cast<IParamBlock2*>(t); }
    RefResult NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&, RefMessage m,
                               bool) override {
        changes += m == REFMSG_CHANGE;
        return REF_SUCCEED;
    }
    IParamBlock2* pb = nullptr;
    int changes = 0;
};

Animatable* OwnerDesc::Create(bool) {
    return new Owner;
}

class ParamBlocks : public ::testing::Test {
protected:
    void SetUp() override { RegisterHostClasses(); }
    void TearDown() override {
        AnimateOff();
        theHold.ClearUndo();
        EXPECT_TRUE(TestTarget::live.empty());
    }
};

TEST_F(ParamBlocks, ValuesOfEveryTypeWhatWritesRefuseAndAccessors) {
    auto* o = new Owner;
    IParamBlock2* pb = o->pb;
    ASSERT_NE(pb, nullptr);
    EXPECT_EQ(pb->GetColor(pTint), Point3(1, 0, 0));  // a table default of a point type
    ASSERT_TRUE(pb->SetValue(pCount, 0, 6) && pb->SetValue(pTint, 0, Point3(0, 1, 0)) &&
                pb->SetValue(pCorner, 0, Point2(3, 4)) &&
                pb->SetValue(pOffset, 0, TransMatrix({1, 2, 3})) &&
                pb->SetValue(pLabel, 0, L"hand"));
    EXPECT_TRUE(pb->GetInt(pCount) == 6 && pb->GetPoint3(pTint) == Point3(0, 1, 0) &&
                pb->GetPoint2(pCorner) == Point2(3, 4) &&
                pb->GetMatrix3(pOffset).GetTrans() == Point3(1, 2, 3) &&
                pb->GetStr(pLabel) == WStr(L"hand"));
    EXPECT_EQ(o->changes, 5);
    // Refused: a value the validator rejects, another type, an unknown id, a table index.
    EXPECT_FALSE(pb->SetValue(pCount, 0, 3));
    EXPECT_FALSE(pb->SetValue(pCount, 0, 2.0f));
    EXPECT_FALSE(pb->SetValue(ParamID(77), 0, 1));
    EXPECT_FALSE(pb->SetValue(pCount, 0, 8, 1));
    EXPECT_TRUE(pb->GetInt(pCount) == 6 && o->changes == 5);
    pb->EnableNotifications(false);
    pb->SetValue(pCount, 0, 8);
    EXPECT_EQ(o->changes, 5);  // a muted block tells nothing
    // Accessors run on reads, writes, undo and redo, but not while loading.
    guardedAccessor = CountingAccessor();
    theHold.Begin();
    o->pb->SetValue(pGuarded, 0, 1.0f);
    theHold.Accept(L"Parameter Change");
    EXPECT_EQ(o->pb->GetFloat(pGuarded), 101.0f);  // the accessor's Get changed the read
    EXPECT_TRUE(guardedAccessor.sets == 1 && guardedAccessor.gets == 1);
    theHold.Undo();
    theHold.Redo();
    EXPECT_EQ(guardedAccessor.setsInUndo, 2);
    SetLoading(true);
    o->pb->SetValue(pGuarded, 0, 2.0f);
    EXPECT_EQ(o->pb->GetFloat(pGuarded), 2.0f);
    SetLoading(false);
    EXPECT_EQ(guardedAccessor.sets, 3);
    o->DeleteMe();
}

TEST_F(ParamBlocks, AnimatableParametersGetAControllerWhenSetWhileAnimating) {
    auto* o = new Owner;
    IParamBlock2* pb = o->pb;
    theHold.Begin();
    AnimateOn();
    pb->SetValue(pSize, 4800, 10.0f);
    AnimateOff();
    theHold.Accept(L"Key");
    Control* c = pb->GetController(pSize);
    ASSERT_TRUE(c && pb->SubAnim(0) == c);
    EXPECT_TRUE(c->NumKeys() == 2 && pb->GetFloat(pSize, 0) == 2.0f &&
                pb->GetFloat(pSize, 4800) == 10.0f);
    const int before = o->changes;
    float v = 3;
    c->SetValue(0, &v);  // the controller's own change reaches the owner through the block
    int tab;
    EXPECT_TRUE(o->changes > before && pb->LastNotifyParamID(tab) == pSize);
    pb->EnableNotifications(false);  // muted, the block passes nothing on from its controllers
    const int heard = o->changes;
    c->SetValue(0, &v);
    EXPECT_EQ(o->changes, heard);
    pb->EnableNotifications(true);
    theHold.Undo();
    EXPECT_TRUE(pb->GetController(pSize) == nullptr && pb->GetFloat(pSize, 4800) == 2.0f);
    o->DeleteMe();
}

TEST_F(ParamBlocks, ControllersCanBeSharedAndTargetsAreReferences) {
    auto *a = new Owner, *b = new Owner;
    Control* shared = NewDefaultFloatController();
    a->pb->SetValue(pSize, 0, 5.0f);
    ASSERT_TRUE(a->pb->SetController(pSize, 0, shared) &&
                b->pb->SetController(pSize, 0, shared, false));
    EXPECT_EQ(b->pb->GetFloat(pSize), 5.0f);  // preserved from a
    b->pb->SetValue(pSize, 0, 7.0f);
    EXPECT_EQ(a->pb->GetFloat(pSize), 7.0f);
    a->DeleteMe();  // the controller stays with b
    EXPECT_EQ(b->pb->GetFloat(pSize), 7.0f);

    auto* target = new TestTarget;  // its deletion and undo are in the random walk below
    b->pb->SetValue(pTarget, 0, target);
    const int before = b->changes;
    target->SetValue(1);  // the owner hears its target
    EXPECT_GT(b->changes, before);
    b->DeleteMe();
}

// Walks of the animatable tree, properties and dimensions.
TEST_F(ParamBlocks, AnimatablesWalkTheirTreeAndKeepTheirProperties) {
    auto* o = new Owner;
    EXPECT_TRUE(!o->IsAnimated() && o->GetTimeRange().Empty());
    AnimateOn();
    o->pb->SetValue(pSize, 4800, 3.0f);
    AnimateOff();
    EXPECT_TRUE(o->IsAnimated() && o->GetTimeRange() == Interval(0, 4800));

    struct Walk : AnimEnum {
        std::vector<int> subNums;
        int stopAt = -1;
        int proc(Animatable* anim, Animatable*, int subNum) override {
            subNums.push_back(subNum);
            return anim->SuperClassID() == PARAMETER_BLOCK2_CLASS_ID && stopAt == 0
                       ? ANIM_ENUM_STOP
                       : ANIM_ENUM_PROCEED;
        }
    } walk;
    o->EnumAnimTree(&walk, nullptr, 0);  // owner, its block, the block's two animatable parameters
    EXPECT_EQ(walk.subNums, (std::vector<int>{0, 0, 0, 1}));
    walk.subNums.clear();
    walk.stopAt = 0;
    o->EnumAnimTree(&walk, nullptr, 0);  // the block's branch is skipped
    EXPECT_EQ(walk.subNums, (std::vector<int>{0, 0}));

    int live = 0;
    struct Prop : AnimProperty {
        explicit Prop(int& count) : live(count) { ++live; }
        ~Prop() override { --live; }
        int& live;
    };
    o->SetProperty(PROPID_JOINTPARAMS, new Prop(live));
    o->SetProperty(PROPID_JOINTPARAMS, new Prop(live));  // replaces, and frees, the first
    EXPECT_EQ(live, 1);
    o->SetProperty(PROPID_JOINTPARAMS, nullptr);
    EXPECT_TRUE(live == 0 && o->GetProperty(PROPID_JOINTPARAMS) == nullptr);
    o->DeleteMe();

    // A block's sub-anims show their values in the parameter's own units.
    ParamBlockDesc2 dims(2, L"dims", 0, 0, nullptr,
                         {{0, L"bend", TYPE_ANGLE, P_ANIMATABLE, 0, {}},
                          {1, L"mix", TYPE_PCNT_FRAC, P_ANIMATABLE, 0, {}}});
    auto* pb = new IParamBlock2(&dims, nullptr);
    EXPECT_NEAR(pb->SubAnimDimension(0)->Convert(3.1415927f), 180.0f, 1e-4f);
    EXPECT_NEAR(pb->SubAnimDimension(1)->UnConvert(50.0f), 0.5f, 1e-6f);
    pb->DeleteMe();
}

TEST_F(ParamBlocks, TransferReferencesMovesEveryDependent) {
    auto *root = new TestTarget, *other = new TestTarget, *from = new TestTarget,
         *to = new TestTarget;
    root->ReplaceReference(0, from);
    root->ReplaceReference(1, other);
    other->ReplaceReference(2, from);
    root->ReplaceReference(2, to);
    theHold.Begin();
    to->TransferReferences(from, true);  // from goes: nothing refers to it any more
    theHold.Accept(L"Replace");
    EXPECT_TRUE(root->Ref(0) == to && other->Ref(2) == to && from->NumDependents() == 0);
    theHold.Undo();
    EXPECT_TRUE(root->Ref(0) == from && other->Ref(2) == from);
    theHold.ClearUndo();
    root->DeleteMe();
}

enum : ParamID { pNodes, pWeights };

// Logs the table edits its parameter hears.
struct TableWatcher : PBAccessor {
    std::vector<std::tuple<tab_changes, int, int>> heard;
    void TabChanged(tab_changes change, ReferenceMaker*, ParamID, int tab, int count) override {
        heard.emplace_back(change, tab, count);
    }
} tableWatcher;

ParamBlockDesc2 tableBlock(
    1, L"tables", 0, 0, nullptr,
    {
        {pNodes, L"nodes", TableOf(TYPE_REFTARG), 0, 0, {}, std::nullopt, &tableWatcher},
        {pWeights,
         L"weights",
         TableOf(TYPE_FLOAT),
         P_ANIMATABLE,
         0,
         {.f = 1.0f},
         std::nullopt,
         nullptr,
         nullptr,
         2},
    });

TEST_F(ParamBlocks, TablesGrowShrinkAndUndoWithTheirReferencesAndControllers) {
    auto* root = new TestTarget;
    auto* pb = new IParamBlock2(&tableBlock, root);
    root->ReplaceReference(0, pb);
    tableWatcher.heard.clear();
    std::vector<TestTarget*> t{new TestTarget, new TestTarget, new TestTarget};
    theHold.Begin();
    ASSERT_EQ(pb->Append(pNodes, 3), 0);
    for (int i = 0; i < 3; ++i) pb->SetValue(pNodes, 0, t[size_t(i)], i);
    pb->SetValue(pWeights, 0, 0.5f, 1);
    AnimateOn();
    pb->SetValue(pWeights, 960, 2.0f, 0);  // element 0 only gets a controller
    AnimateOff();
    theHold.Accept(L"Fill");
    ASSERT_TRUE(pb->GetController(pWeights, 0) && !pb->GetController(pWeights, 1));

    theHold.Begin();
    ASSERT_TRUE(pb->Delete(pNodes, 0, 1));  // t[0] leaves, and goes with its last reference
    ASSERT_TRUE(pb->Insert(pWeights, 1, 1));
    theHold.Accept(L"Edit");
    EXPECT_TRUE(pb->GetReferenceTarget(pNodes, 0, 0) == t[1] && pb->Count(pNodes) == 2);
    EXPECT_TRUE(pb->Count(pWeights) == 3 && pb->GetFloat(pWeights, 0, 1) == 1.0f &&
                pb->GetFloat(pWeights, 0, 2) == 0.5f);
    EXPECT_TRUE(pb->GetController(pWeights, 0) && pb->GetFloat(pWeights, 960, 0) == 2.0f);
    theHold.Begin();
    t[1]->DeleteMe();  // a referenced element dies: the table hears it and the slot empties
    theHold.Accept(L"Delete");
    EXPECT_TRUE(pb->GetReferenceTarget(pNodes, 0, 0) == nullptr && pb->Count(pNodes) == 2);
    using H = std::tuple<tab_changes, int, int>;
    EXPECT_EQ(tableWatcher.heard,
              (std::vector<H>{{tab_insert, 0, 3}, {tab_delete, 0, 1}, {tab_ref_deleted, 0, 1}}));
    EXPECT_FALSE(pb->Insert(pNodes, 5, 1) || pb->Delete(pNodes, 1, 2) ||
                 pb->Insert(ParamID(9), 0, 1));

    while (theHold.Undo()) {
    }
    EXPECT_TRUE(pb->Count(pNodes) == 0 && pb->Count(pWeights) == 2 &&
                !pb->GetController(pWeights, 0) && pb->GetFloat(pWeights, 0, 1) == 1.0f);
    while (theHold.Redo()) {
    }
    EXPECT_TRUE(pb->Count(pNodes) == 2 && pb->GetReferenceTarget(pNodes, 0, 1) == t[2]);
    EXPECT_TRUE(pb->Count(pWeights) == 3 && pb->GetFloat(pWeights, 960, 0) == 2.0f);
    EXPECT_TRUE(pb->SetCount(pNodes, 1) && pb->Count(pNodes) == 1);
    theHold.ClearUndo();
    root->DeleteMe();
}

// What an owner shows: its parameters sampled over time, its target and controller.
struct OwnerState {
    std::vector<float> size;
    int count;
    WStr label;
    ReferenceTarget* target;
    int targetValue;
    Control* sizeControl;
    int keys;
    bool operator==(const OwnerState&) const = default;
};

std::map<int, std::pair<Owner*, OwnerState>> Snapshot(TestTarget* root) {
    std::map<int, std::pair<Owner*, OwnerState>> s;
    for (int i = 0; i < TestTarget::kSlots; ++i) {
        auto* o = static_cast<Owner*>(root->GetReference(i));
        if (!o) continue;
        IParamBlock2* pb = o->pb;
        OwnerState st{{},
                      pb->GetInt(pCount),
                      pb->GetStr(pLabel),
                      pb->GetReferenceTarget(pTarget),
                      0,
                      pb->GetController(pSize),
                      0};
        for (TimeValue t : {0, 1000, 4800, 9000}) st.size.push_back(pb->GetFloat(pSize, t));
        if (st.target) st.targetValue = static_cast<TestTarget*>(st.target)->Value();
        if (st.sizeControl) st.keys = st.sizeControl->NumKeys();
        s[i] = {o, st};
    }
    return s;
}

// Random parameter writes, reference replacements, key edits and deletions under holds
// (nested and cancelled ones among them): undo to the beginning gives back the exact
// first state, redo to the end the exact last, and nothing leaks.
TEST_F(ParamBlocks, UndoAndRedoOfRandomSceneEditsAreExact) {
    auto* root = new TestTarget;
    for (int i = 0; i < TestTarget::kSlots; ++i) root->ReplaceReference(i, new Owner);
    std::mt19937 rng(9);
    auto pick = [&rng](int n) { return int(rng() % unsigned(n)); };
    auto owner = [&] { return static_cast<Owner*>(root->GetReference(pick(TestTarget::kSlots))); };
    const auto initial = Snapshot(root);
    for (int step = 0; step < 300; ++step) {
        const auto now = Snapshot(root);
        theHold.Begin();
        IParamBlock2* pb = owner()->pb;
        switch (pick(8)) {
            case 0:
                if (pick(2)) AnimateOn();
                pb->SetValue(pSize, pick(10) * 960, float(pick(100)));
                AnimateOff();
                break;
            case 1:
                pb->SetValue(pCount, 0, 2 * pick(50));
                break;
            case 2:
                pb->SetValue(pLabel, 0, pick(2) ? L"hand" : L"foot");
                break;
            case 3:
                pb->SetValue(pTarget, 0,
                             pick(3) ? static_cast<ReferenceTarget*>(new TestTarget)
                                     : owner()->pb->GetReferenceTarget(pTarget));
                break;
            case 4:
                if (Control* c = pb->GetController(pSize)) {
                    theHold.Begin();  // merged into the step's hold
                    c->MoveKeys(pick(200) - 100, false);
                    if (c->NumKeys() > 1) c->DeleteKeyAtTime(c->GetKeyTime(0));
                    c->SetORT(ORT_CYCLE + pick(4), pick(2) ? ORT_AFTER : ORT_BEFORE);
                    theHold.Accept(L"Keys");
                }
                break;
            case 5:
                if (auto* t = static_cast<TestTarget*>(pb->GetReferenceTarget(pTarget))) {
                    t->SetValue(pick(10));
                    if (pick(2)) t->DeleteMe();
                }
                break;
            case 6:
                root->ReplaceReference(pick(TestTarget::kSlots), new Owner);
                break;
            case 7:
                if (Control* c = owner()->pb->GetController(pSize))
                    pb->SetController(pSize, 0, c, false);
                break;
        }
        if (pick(10) == 0) {
            theHold.Cancel();
            ASSERT_EQ(Snapshot(root), now) << "cancel at step " << step;
        } else {
            theHold.Accept(L"Edit");
        }
    }
    const auto final = Snapshot(root);
    while (theHold.Undo()) {
    }
    EXPECT_EQ(Snapshot(root), initial);
    while (theHold.Redo()) {
    }
    EXPECT_EQ(Snapshot(root), final);
    theHold.ClearUndo();
    root->DeleteMe();
    EXPECT_EQ(Owner::live, 0);
}

}  // namespace
}  // namespace host
