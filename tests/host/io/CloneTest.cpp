#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "host/classes/EditableMesh.h"
#include "host/classes/EulerXYZ.h"
#include "host/classes/HostClasses.h"
#include "host/classes/ICurveCtl.h"
#include "host/classes/LinkControl.h"
#include "host/classes/ListControl.h"
#include "host/classes/MorphModifier.h"
#include "host/classes/OrientationConstraint.h"
#include "host/classes/PointHelper.h"
#include "host/classes/TextShape.h"
#include "host/io/ChunkWriter.h"
#include "host/io/CloneRemapDir.h"
#include "host/io/SceneWriter.h"
#include "host/object/Animate.h"
#include "host/object/DerivedObject.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/ILayerManager.h"
#include "host/object/IParamBlock2.h"
#include "host/object/RefTargMonitorRefMaker.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

class Cloning : public SceneTest {};

// What an object's Save answers and writes (a block without a definition a class
// publishes cannot save, clone or not).
std::pair<IOResult, std::vector<uint8_t>> Saved(ReferenceTarget* object) {
    ChunkWriter writer;
    const IOResult result = object->Save(&writer);
    return {result, writer.Bytes()};
}

// Reads a controller of any value type at t as a matrix (relatively, from the identity,
// so that every type gives a comparable value).
Matrix3 ReadAsMatrix(Control* c, TimeValue t, Interval& valid) {
    Matrix3 tm;
    if (c->SuperClassID() == CTRL_FLOAT_CLASS_ID) {
        float v = 0;
        c->GetValue(t, &v, valid, CTRL_RELATIVE);
        tm.SetTrans(Point3(v, 0, 0));
    } else {
        c->GetValue(t, &tm, valid, CTRL_RELATIVE);
    }
    return tm;
}

// Walks an original and its clone side by side: the same classes, saved bytes and
// controller values (validity included) at many times; one clone for each original
// (instancing kept) and never the original itself; nodes are the ones nodeClones maps
// them to, or the same node when they were not cloned.
class CloneMatch {
public:
    explicit CloneMatch(std::map<INode*, INode*> nodeClones = {})
        : nodeClones_(std::move(nodeClones)) {}

    void Expect(ReferenceTarget* original, ReferenceTarget* clone) {
        if (!original) {
            EXPECT_EQ(clone, nullptr);
            return;
        }
        ASSERT_NE(clone, nullptr) << original->GetClassName().data();
        if (auto* node = dynamic_cast<INode*>(original)) {
            const auto it = nodeClones_.find(node);
            EXPECT_EQ(clone, it == nodeClones_.end() ? node : it->second);
            return;
        }
        const auto [seen, fresh] = clones_.emplace(original, clone);
        if (!fresh) {
            EXPECT_EQ(seen->second, clone) << "an instance was cloned twice";
            return;
        }
        const std::string name = original->GetClassName().ToUtf8();
        EXPECT_NE(clone, original) << name;
        EXPECT_TRUE(clone->ClassID() == original->ClassID() &&
                    clone->SuperClassID() == original->SuperClassID())
            << name;
        EXPECT_EQ(Saved(clone), Saved(original)) << name;
        if (auto* control = dynamic_cast<Control*>(original))
            ExpectSameValues(control, static_cast<Control*>(clone), name);
        ASSERT_EQ(clone->NumRefs(), original->NumRefs()) << name;
        for (int i = 0; i < original->NumRefs(); ++i)
            Expect(original->GetReference(i), clone->GetReference(i));
        ICustAttribContainer* attribs = original->GetCustAttribContainer();
        Expect(attribs, clone->GetCustAttribContainer());
        if (attribs) {
            EXPECT_EQ(clone->GetCustAttribContainer()->GetOwner(), clone) << name;
        }
        // A block belongs to its owner's clone, or to nothing when cloned alone.
        if (auto* block = dynamic_cast<IParamBlock2*>(original)) {
            const auto owner = clones_.find(dynamic_cast<ReferenceTarget*>(block->GetOwner()));
            EXPECT_EQ(static_cast<IParamBlock2*>(clone)->GetOwner(),
                      owner == clones_.end() ? nullptr : owner->second);
        }
    }

private:
    static void ExpectSameValues(Control* original, Control* clone, const std::string& name) {
        for (TimeValue t = -900; t <= 4000; t += 137) {
            Interval va = FOREVER, vb = FOREVER;
            const Matrix3 a = ReadAsMatrix(original, t, va), b = ReadAsMatrix(clone, t, vb);
            ASSERT_TRUE(a == b && va == vb) << name << " at " << t;
        }
    }

    std::map<INode*, INode*> nodeClones_;
    std::map<ReferenceTarget*, ReferenceTarget*> clones_;
};

// Keys at three times (animate mode) and cycling after the last, for any keyable track;
// the tracks of compound controllers get theirs through their sub-anims.
void Animate(Animatable* anim, float seed) {
    auto* c = dynamic_cast<Control*>(anim);
    if (c && c->IsKeyable()) {
        AnimateOn();
        for (int k = 0; k < 3; ++k) {
            const float x = seed + 0.37f * float(k);
            float f = x;
            Point3 p(x, 1 - x, 2 * x);
            Quat q = Normalize(Quat(x, 0.3f, -0.2f, 1));
            ScaleValue s(Point3(1 + x * x, 2, 0.5f), q);
            void* values[] = {&f, &p, &q, &s};
            const SClass_ID sc = c->SuperClassID();
            const int which = sc == CTRL_FLOAT_CLASS_ID      ? 0
                              : sc == CTRL_POSITION_CLASS_ID ? 1
                              : sc == CTRL_ROTATION_CLASS_ID ? 2
                                                             : 3;
            c->SetValue(k * 700 + 100, values[which]);
        }
        AnimateOff();
        c->SetORT(ORT_CYCLE, ORT_AFTER);
    }
    for (int i = 0; i < anim->NumSubs(); ++i)
        if (Animatable* sub = anim->SubAnim(i)) Animate(sub, seed + float(i));
}

// A track view node made as a tree's belongs to no reference; everything else goes
// with DeleteMe.
void Discard(ReferenceTarget* object) {
    if (dynamic_cast<TrackViewNode*>(object) && !object->HasDependents()) {
        object->DeleteAllRefsFromMe();
        object->DeleteThis();
        return;
    }
    object->DeleteMe();
}

// Joint data that copies itself into clones.
struct Joint : AnimProperty {
    explicit Joint(float v) : limit(v) {}
    AnimProperty* Clone() const override { return new Joint(limit); }
    float limit;
};
constexpr uint32_t kPrivateProperty = 0x7001;  // data that stays with its object

template <class T>
T* Make(SClass_ID superClass, Class_ID id) {
    return dynamic_cast<T*>(CreateInstance(superClass, id));
}

TEST_F(Cloning, EveryHostClassClonesToAnEqualObject) {
    for (ClassDesc2* desc : HostClassDescriptors()) {
        auto* original = dynamic_cast<ReferenceTarget*>(desc->Create(false));
        ASSERT_NE(original, nullptr) << desc->ClassName();
        Animate(original, 0.25f);
        original->AllocCustAttribContainer();
        original->SetProperty(PROPID_JOINTPARAMS, new Joint(0.75f));
        original->SetProperty(kPrivateProperty, new AnimProperty);
        ReferenceTarget* clone = CloneRefHierarchy(original);
        CloneMatch().Expect(original, clone);
        ASSERT_NE(clone, nullptr);
        auto* joint = dynamic_cast<Joint*>(clone->GetProperty(PROPID_JOINTPARAMS));
        ASSERT_NE(joint, nullptr);
        EXPECT_EQ(joint->limit, 0.75f);
        EXPECT_EQ(clone->GetProperty(kPrivateProperty), nullptr);
        clone->DeleteMe();
        Discard(original);
    }
}

// Objects with state of every kind the host's classes keep: list entries, constraint
// targets and weights, link times, Euler order, morph channels in a modifier stack,
// meshes, curves, text, parameter controllers and custom tracks.
TEST_F(Cloning, ObjectsWithStateCloneExactly) {
    INode* a = ip->CreateObjectNode(nullptr);
    INode* b = ip->CreateObjectNode(nullptr);
    std::mt19937 rng(7);
    KeyNode(a, {0, 600, 1800}, rng);
    KeyNode(b, {0, 900}, rng);
    std::vector<ReferenceTarget*> originals;

    auto* list = Make<ListControl>(CTRL_POSITION_CLASS_ID, POSITION_LIST_CLASS_ID);
    list->Append(NewDefaultPositionController(), L"Base");
    list->Append(Make<Control>(CTRL_POSITION_CLASS_ID, TCB_POSITION_CLASS_ID), L"Shake");
    list->SetWeight(1, 0.3f);
    list->SetActive(1);
    originals.push_back(list);

    auto* orient = new OrientationConstraint;
    orient->AppendTarget(a, 20);
    orient->AppendTarget(b, 70);
    originals.push_back(orient);

    auto* link = new LinkControl;
    link->AddTarget(a, 300);
    link->AddWorld(1200);
    link->AddTarget(b, 2000);
    originals.push_back(link);

    auto* euler = new EulerXYZ;
    euler->SetOrder(4);
    originals.push_back(euler);

    auto* mesh = new EditableMesh;
    for (int v = 0; v < 4; ++v) mesh->GetMesh().NewVert(Point3(float(v), float(v % 2), 0));
    mesh->GetMesh().NewFace({0, 1, 2, 3});
    auto* morph = new MorphModifier;
    morph->SetChannelName(3, WStr(L"Smile"));
    morph->SetTarget(3, {{0, 0, 1}, {1, 1, 1}, {2, 0, 1}, {3, 1, 1}});
    morph->SetWeight(3, 500, 60);
    IDerivedObject* stack = CreateDerivedObject(mesh);
    stack->AddModifier(morph);
    originals.push_back(stack);

    auto* curves = new ICurveCtl;
    curves->SetNumCurves(2);
    curves->SetXRange(-1, 4);
    curves->GetControlCurve(1)->Insert({{2, -1}, {-0.5f, 0.2f}, {0.3f, 0}, CURVEP_BEZIER});
    originals.push_back(curves);

    auto* text = new TextShape;
    text->GetParamBlock(0)->SetValue(TextShape::TEXT, 0, L"Rig\nTwo");
    originals.push_back(text);

    auto* point = new PointHelper;
    point->GetParamBlock(0)->SetController(PointHelper::SIZE, 0, NewDefaultFloatController());
    originals.push_back(point);

    auto* tracks = new TrackViewNode(true);
    tracks->AddController(NewDefaultFloatController(), L"Tools", Class_ID(3, 4));
    originals.push_back(tracks);

    for (ReferenceTarget* original : originals) {
        Animate(original, 0.5f);
        ReferenceTarget* clone = CloneRefHierarchy(original);
        CloneMatch().Expect(original, clone);
        if (clone) clone->DeleteMe();
        original->DeleteMe();
    }
}

TEST_F(Cloning, InstancesStayInstancesInsideTheClone) {
    auto* xyz = Make<Control>(CTRL_POSITION_CLASS_ID, POSITION_XYZ_CLASS_ID);
    Control* shared = NewDefaultFloatController();
    xyz->AssignController(shared, 0);
    xyz->AssignController(shared, 2);
    Animate(shared, 1);
    auto* clone = static_cast<Control*>(CloneRefHierarchy(xyz));
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->GetXController(), clone->GetZController());
    EXPECT_NE(clone->GetXController(), shared);
    CloneMatch().Expect(xyz, clone);
    clone->DeleteMe();
    xyz->DeleteMe();
}

TEST_F(Cloning, CloneControlGivesTheOutOfRangeTypes) {
    Control* from = NewDefaultFloatController();
    Control* to = NewDefaultFloatController();
    from->SetORT(ORT_LOOP, ORT_BEFORE);
    from->SetORT(ORT_OSCILLATE, ORT_AFTER);
    RemapDir* remap = NewRemapDir();
    from->CloneControl(to, *remap);
    remap->DeleteThis();
    EXPECT_EQ(to->GetORT(ORT_BEFORE), ORT_LOOP);
    EXPECT_EQ(to->GetORT(ORT_AFTER), ORT_OSCILLATE);
    from->DeleteMe();
    to->DeleteMe();
}

// Records the order procedures ran in, what they saw, and whether they were deleted.
struct ProcLog {
    std::vector<int> ran;
    std::vector<ReferenceTarget*> seen;
    int deleted = 0;
};

class LoggingProc : public PostPatchProc {
public:
    LoggingProc(ProcLog& log, int id, ReferenceTarget* watch) : log_(log), id_(id), watch_(watch) {}
    ~LoggingProc() override { ++log_.deleted; }
    int Proc(RemapDir& remap) override {
        log_.ran.push_back(id_);
        log_.seen.push_back(remap.FindMapping(watch_));
        return 1;
    }

private:
    ProcLog& log_;
    int id_;
    ReferenceTarget* watch_;
};

TEST_F(Cloning, PostPatchProceduresRunAfterTheWholeCloneInOrder) {
    Control* first = NewDefaultFloatController();
    Control* second = NewDefaultFloatController();
    ProcLog log;
    LoggingProc kept(log, 3, first);
    RemapDir* remap = NewRemapDir();
    ReferenceTarget* firstClone = remap->CloneRef(first);
    // Added before the second object is cloned, it still sees its clone.
    remap->AddPostPatchProc(new LoggingProc(log, 1, second), true);
    remap->AddPostPatchProc(new LoggingProc(log, 2, first), true);
    remap->AddPostPatchProc(&kept, false);
    ReferenceTarget* secondClone = remap->CloneRef(second);
    EXPECT_EQ(remap->CloneRef(second), secondClone) << "a second request gives the same clone";
    EXPECT_TRUE(log.ran.empty());
    remap->Backpatch();
    EXPECT_EQ(log.ran, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(log.seen, (std::vector<ReferenceTarget*>{secondClone, firstClone, firstClone}));
    EXPECT_EQ(log.deleted, 2) << "only the procedures given with deleteIt";
    remap->Clear();
    EXPECT_EQ(remap->FindMapping(first), nullptr);
    EXPECT_EQ(remap->CloneRef(nullptr), nullptr);
    remap->DeleteThis();
    for (ReferenceTarget* t : {static_cast<ReferenceTarget*>(first),
                               static_cast<ReferenceTarget*>(second), firstClone, secondClone})
        t->DeleteMe();
}

// An owner of a weak monitor that clones as the host's weak owners do.
class WeakOwner : public ReferenceTarget, public IRefTargMonitor {
public:
    explicit WeakOwner(ReferenceTarget* target = nullptr)
        : monitor(new RefTargMonitorRefMaker(*this, target)) {}
    ~WeakOwner() override { monitor->DeleteThis(); }
    ReferenceTarget* Clone(RemapDir& remap) override {
        auto* to = new WeakOwner;
        to->monitor->DeleteThis();
        to->monitor = monitor->CloneFor(*to, remap);
        BaseClone(this, to, remap);
        return to;
    }
    RefResult ProcessRefTargMonitorMsg(const Interval&, ReferenceTarget*, PartID&, RefMessage msg,
                                       bool fromTarget, bool, RefTargMonitorRefMaker*) override {
        if (fromTarget && msg == REFMSG_CHANGE) ++changes;
        return REF_SUCCEED;
    }
    int ProcessEnumDependents(DependentEnumProc*) override { return 0; }

    RefTargMonitorRefMaker* monitor;
    int changes = 0;
};

TEST_F(Cloning, WeakMonitorsFollowTheirTargetIntoTheClone) {
    INode* outside = ip->CreateObjectNode(nullptr);
    Control* inside = NewDefaultFloatController();
    for (bool targetFirst : {true, false}) {
        WeakOwner watchesInside(inside), watchesOutside(outside);
        RemapDir* remap = NewRemapDir();
        ReferenceTarget* insideClone = targetFirst ? remap->CloneRef(inside) : nullptr;
        auto* a = static_cast<WeakOwner*>(remap->CloneRef(&watchesInside));
        auto* b = static_cast<WeakOwner*>(remap->CloneRef(&watchesOutside));
        if (!targetFirst) insideClone = remap->CloneRef(inside);
        EXPECT_EQ(a->monitor->GetRef(), inside) << "patched only at Backpatch";
        remap->Backpatch();
        remap->DeleteThis();
        EXPECT_EQ(a->monitor->GetRef(), insideClone);
        EXPECT_EQ(b->monitor->GetRef(), outside);
        // The monitor is registered with its new target, and no longer with the old one.
        insideClone->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
        inside->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
        EXPECT_EQ(a->changes, 1);
        EXPECT_EQ(watchesInside.changes, 1);
        insideClone->DeleteMe();
        EXPECT_EQ(a->monitor->GetRef(), nullptr);
        delete a;
        delete b;
    }
    inside->DeleteMe();
}

// An arm: the upper arm with two children, the lower arm, whose rotation is constrained
// to its sibling the hand (cloned after it) and to a node outside, and the hand, which
// links to the upper arm and to the node outside.
struct Arm {
    INode *upper, *lower, *hand, *outside;
};

Arm BuildArm(Interface* ip) {
    std::mt19937 rng(11);
    Arm arm{};
    for (INode** node : {&arm.upper, &arm.lower, &arm.hand, &arm.outside}) {
        *node = ip->CreateObjectNode(new PointHelper);
        KeyNode(*node, {0, 500, 1500}, rng);
    }
    arm.upper->SetName(L"Upper");
    arm.hand->SetName(L"Hand007");
    arm.upper->AttachChild(arm.lower, false);
    arm.upper->AttachChild(arm.hand, false);
    auto* orient = new OrientationConstraint;
    orient->AppendTarget(arm.hand, 30);
    orient->AppendTarget(arm.outside, 60);
    arm.lower->GetTMController()->SetRotationController(orient);
    auto* link = new LinkControl;
    arm.hand->SetTMController(link);
    link->AddTarget(arm.upper, 400);
    link->AddTarget(arm.outside, 1100);
    arm.lower->SetWireColor(RGB(10, 200, 30));
    arm.lower->SetObjOffsetPos(Point3(0, 1, 2));
    arm.lower->Hide(true);
    ip->GetLayerManager()->CreateLayer(WStr(L"Rig"))->AddToLayer(arm.lower);
    return arm;
}

TEST_F(Cloning, ClonedHierarchyKeepsInsideReferencesInsideAndOutsideOnesShared) {
    const Arm arm = BuildArm(ip);
    ip->GetScene().Select({arm.outside});
    INodeTab nodes, sources, targets;
    nodes.Append(1, &arm.upper);
    ASSERT_TRUE(ip->CloneNodes(nodes, Point3(), true, NODE_COPY, &sources, &targets));
    ASSERT_EQ(targets.Count(), 3);
    std::map<INode*, INode*> clones;
    for (int i = 0; i < sources.Count(); ++i) clones[sources[i]] = targets[i];
    INode *upper = clones[arm.upper], *lower = clones[arm.lower], *hand = clones[arm.hand];

    auto* orient =
        static_cast<OrientationConstraint*>(lower->GetTMController()->GetRotationController());
    EXPECT_EQ(orient->GetNode(0), hand);
    EXPECT_EQ(orient->GetNode(1), arm.outside);
    auto* link = static_cast<LinkControl*>(hand->GetTMController());
    EXPECT_EQ(link->GetNode(0), upper);
    EXPECT_EQ(link->GetNode(1), arm.outside);
    for (int i = 0; i < 3; ++i)
        CloneMatch(clones).Expect(sources[i]->GetTMController(), targets[i]->GetTMController());

    // Place, names and properties.
    EXPECT_EQ(upper->GetParentNode(), ip->GetRootNode());
    EXPECT_EQ(lower->GetParentNode(), upper);
    EXPECT_EQ(hand->GetParentNode(), upper);
    EXPECT_STREQ(upper->GetName(), L"Upper001");
    EXPECT_STREQ(hand->GetName(), L"Hand001");
    EXPECT_EQ(lower->GetWireColor(), arm.lower->GetWireColor());
    EXPECT_EQ(lower->GetObjOffsetPos(), arm.lower->GetObjOffsetPos());
    EXPECT_TRUE(lower->IsHidden());
    EXPECT_EQ(lower->GetLayer(), arm.lower->GetLayer());
    EXPECT_NE(lower->GetObjectRef(), arm.lower->GetObjectRef());
    EXPECT_EQ(ip->GetSelNodeCount(), 1);
    for (TimeValue t = 0; t <= 2000; t += 125)
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(targets[i]->GetNodeTM(t) == sources[i]->GetNodeTM(t)) << i << " at " << t;

    // A clone whose parent is not cloned goes under the same parent, moved by the offset.
    nodes.SetCount(0);
    nodes.Append(1, &arm.hand);
    targets.SetCount(0);
    ASSERT_TRUE(ip->CloneNodes(nodes, Point3(5, 0, 0), true, NODE_INSTANCE, nullptr, &targets));
    ASSERT_EQ(targets.Count(), 1);
    EXPECT_EQ(targets[0]->GetParentNode(), arm.upper);
    EXPECT_EQ(targets[0]->GetObjectRef(), arm.hand->GetObjectRef());
    const Point3 moved = targets[0]->GetNodeTM(ip->GetTime()).GetTrans() -
                         arm.hand->GetNodeTM(ip->GetTime()).GetTrans();
    EXPECT_LT(Length(moved - Point3(5, 0, 0)), 1e-4f);
    EXPECT_EQ(static_cast<LinkControl*>(targets[0]->GetTMController())->GetNode(0), arm.upper);

    // A reference gets a stack of its own over the same object.
    ASSERT_TRUE(ip->CloneNodes(nodes, Point3(), false, NODE_REFERENCE, nullptr, &targets));
    auto* stack = dynamic_cast<IDerivedObject*>(targets[1]->GetObjectRef());
    ASSERT_NE(stack, nullptr);
    EXPECT_EQ(stack->GetObjRef(), arm.hand->GetObjectRef());
}

TEST_F(Cloning, UndoRemovesTheClonesExactlyAndRedoBringsThemBack) {
    BuildArm(ip);
    theHold.ClearUndo();
    const std::vector<uint8_t> before = SceneWriter::Write(*ip);
    INodeTab nodes;
    INode* upper = ip->GetINodeByName(L"Upper");
    nodes.Append(1, &upper);
    ASSERT_TRUE(ip->CloneNodes(nodes, Point3(1, 2, 3)));
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_STREQ(theHold.UndoName(0).data(), L"Clone");
    const std::vector<uint8_t> after = SceneWriter::Write(*ip);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(SceneWriter::Write(*ip), before);
    EXPECT_EQ(ip->GetINodeByName(L"Upper001"), nullptr);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(SceneWriter::Write(*ip), after);
}

TEST_F(Cloning, BadRequestsLeaveTheSceneAsItWas) {
    const Arm arm = BuildArm(ip);
    // An object of a class that cannot be cloned fails the whole operation.
    struct Fixed : Object {
        ObjectState Eval(TimeValue) override { return {this}; }
    };
    INode* fixed = ip->CreateObjectNode(new Fixed);
    arm.lower->AttachChild(fixed, false);
    theHold.ClearUndo();
    const std::vector<uint8_t> withFixed = SceneWriter::Write(*ip);
    INode* null = nullptr;
    INode* root = ip->GetRootNode();
    const std::vector<std::pair<std::vector<INode*>, CloneType>> requests = {
        {{}, NODE_COPY},
        {{arm.upper, null}, NODE_COPY},
        {{root}, NODE_COPY},
        {{arm.upper}, NODE_NONE},
        {{arm.upper}, NODE_COPY}};
    for (const auto& [list, type] : requests) {
        INodeTab nodes;
        for (INode* node : list) nodes.Append(1, &node);
        EXPECT_FALSE(ip->CloneNodes(nodes, Point3(), true, type));
        EXPECT_EQ(SceneWriter::Write(*ip), withFixed);
        EXPECT_EQ(theHold.NumUndoEntries(), 0);
    }
}

}  // namespace
}  // namespace host::test
