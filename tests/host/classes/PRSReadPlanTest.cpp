#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/classes/IEulerControl.h"
#include "host/classes/IKeyControl.h"
#include "host/classes/PRS.h"
#include "host/math/Euler.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/ReferenceMaker.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

// The default PRS reads its default parts through a plan of cursors and builds the
// transform in registers; the parts' own relative reads, called one by one, are the
// general path. Both must agree to the bit, whatever the keys, the order of reads and
// the edits between them.
class PRSReadPlanTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        prs_ = static_cast<PRS*>(NewDefaultMatrix3Controller());
        ASSERT_NE(prs_, nullptr);
    }
    void TearDown() override {
        prs_->DeleteMe();
        theHold.ClearUndo();
    }

    Control* Track(int i) {
        Control* part = i < 3 ? prs_->GetPositionController() : prs_->GetRotationController();
        const int axis = i % 3;
        return axis == 0 ? part->GetXController()
                         : (axis == 1 ? part->GetYController() : part->GetZController());
    }
    int Uniform(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
    float Value(float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(rng_); }

    // Keys at random times with every tangent type, custom lengths now and then, and
    // random out-of-range types; some tracks get no key or one.
    uint32_t Flags() {
        return SetOutTanType(SetInTanType(0, BezierTangent(Uniform(0, 6))),
                             BezierTangent(Uniform(0, 6)));
    }
    void KeyFloat(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        const int count = Uniform(0, 9);
        for (int k = 0; k < count; ++k) {
            IBezFloatKey key;
            key.time = Uniform(-400, 4000);
            key.val = Value(-3.0f, 3.0f);
            key.flags = Flags();
            key.intan = Value(-0.01f, 0.01f);
            key.outtan = Value(-0.01f, 0.01f);
            if (Uniform(0, 5) == 0) key.outLength = Value(0.1f, 0.9f);
            keys->AppendKey(&key);
        }
        keys->SortKeys();
        track->SetORT(Uniform(0, 5), ORT_BEFORE);
        track->SetORT(Uniform(0, 5), ORT_AFTER);
    }
    // Mirrors, and turned scale axes shared by all keys or differing from key to key.
    void KeyScale(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        const int count = Uniform(0, 9);
        const int axes = Uniform(0, 2);  // identity, one turned axis, an axis per key
        const Quat shared = rnd_.Rotation();
        for (int k = 0; k < count; ++k) {
            IBezScaleKey key;
            key.time = Uniform(-400, 4000);
            key.val = ScaleValue(rnd_.Vector(-1.5f, 1.5f),
                                 axes == 0 ? Quat() : (axes == 1 ? shared : rnd_.Rotation()));
            key.flags = Flags();
            keys->AppendKey(&key);
        }
        keys->SortKeys();
    }
    // Smooth keys every 200 ticks over 0 to 4000, which cursors read.
    void KeyEvenly(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        for (TimeValue t = 0; t <= 4000; t += 200) {
            IBezFloatKey key;
            key.time = t;
            key.val = Value(-3.0f, 3.0f);
            keys->AppendKey(&key);
        }
    }
    void KeyAll() {
        for (int i = 0; i < 6; ++i) KeyFloat(Track(i));
        KeyScale(prs_->GetScaleController());
        Euler()->SetOrder(Uniform(0, kEulerOrderCount - 1));
    }
    IEulerControl* Euler() {
        return static_cast<IEulerControl*>(
            prs_->GetRotationController()->GetInterface(I_EULERCTRL));
    }

    // Times in playback order (small and large steps), then scrubbing, then backwards,
    // reaching before the first key and past the last; last, playback up to kResume,
    // where the next reads begin, so that they find the cursors inside the keys.
    static constexpr TimeValue kResume = 2000;
    std::vector<TimeValue> Times() {
        std::vector<TimeValue> times;
        for (TimeValue t = -600; t < 4400; t += Uniform(1, 200)) times.push_back(t);
        for (int n = 0; n < 60; ++n) times.push_back(Uniform(-600, 4400));
        for (TimeValue t = 4400; t > -600; t -= Uniform(1, 300)) times.push_back(t);
        for (TimeValue t = 1000; t < kResume; t += Uniform(1, 100)) times.push_back(t);
        times.push_back(kResume);
        return times;
    }

    // The plan's result and the parts' one by one, compared bit for bit: rows, identity
    // flags and validity.
    void ExpectSameAsParts(TimeValue t, const Matrix3& parent) {
        Matrix3 planned = parent;
        Interval plannedValid = FOREVER;
        prs_->GetValue(t, &planned, plannedValid, CTRL_RELATIVE);
        Matrix3 general = parent;
        Interval generalValid = FOREVER;
        for (Control* part : {prs_->GetPositionController(), prs_->GetRotationController(),
                              prs_->GetScaleController()})
            part->GetValue(t, &general, generalValid, CTRL_RELATIVE);
        ASSERT_EQ(std::memcmp(&planned, &general, sizeof(Matrix3)), 0) << "at " << t;
        ASSERT_EQ(plannedValid.Start(), generalValid.Start()) << "at " << t;
        ASSERT_EQ(plannedValid.End(), generalValid.End()) << "at " << t;
    }
    void ExpectSameAsParts(const Matrix3& parent) {
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(kResume, parent));
        for (TimeValue t : Times()) ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(t, parent));
    }

    PRS* prs_ = nullptr;
    std::mt19937 rng_{17};
    test::MathRandom rnd_{29};
};

TEST_F(PRSReadPlanTest, RandomKeysReadAsThePartsReadThem) {
    for (int scene = 0; scene < 40; ++scene) {
        SCOPED_TRACE(scene);
        prs_->DeleteMe();
        prs_ = static_cast<PRS*>(NewDefaultMatrix3Controller());
        KeyAll();
        // The identity parent keeps its flags until a part clears them.
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(Matrix3()));
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(rnd_.Affine()));
    }
}

// Each edit leaves the plan reading tables that are gone or hold other keys, or parts that
// changed, unless the plan is built again. The reads after an edit begin where the cursors
// stopped before it.
TEST_F(PRSReadPlanTest, EditsBetweenReadsAreSeen) {
    for (int i = 0; i < 6; ++i) KeyEvenly(Track(i));
    KeyScale(prs_->GetScaleController());
    const Matrix3 parent = rnd_.Affine();
    auto check = [&](const char* edit) {
        SCOPED_TRACE(edit);
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(parent));
    };
    check("keys");

    IKeyControl* keys = GetKeyControlInterface(Track(4));
    KeyEvenly(Track(4));  // twice the keys: the segment table moves
    keys->SortKeys();
    check("keys added");

    theHold.Begin();
    Euler()->SetOrder((Euler()->GetOrder() + 4) % kEulerOrderCount);
    GetKeyControlInterface(Track(0))->SetNumKeys(0);
    theHold.Accept(L"Edit");
    check("order and keys");
    ASSERT_TRUE(theHold.Undo());
    check("undo");
    ASSERT_TRUE(theHold.Redo());
    check("redo");

    DisableRefMsgs();
    IBezFloatKey moved;
    keys->GetKey(3, &moved);
    moved.val += 1.0f;
    keys->SetKey(3, &moved);
    EnableRefMsgs();
    check("a key set with messages off");

    // A track of another class: the parts are read one by one; then bezier again.
    auto* tcb = static_cast<Control*>(CreateInstance(CTRL_FLOAT_CLASS_ID, TCB_FLOAT_CLASS_ID));
    ASSERT_TRUE(prs_->GetPositionController()->AssignController(tcb, 1));
    check("a TCB track");
    ASSERT_TRUE(prs_->GetPositionController()->AssignController(NewDefaultFloatController(), 1));
    KeyFloat(Track(1));
    check("a new bezier track");
    ASSERT_TRUE(prs_->AssignController(NewDefaultScaleController(), 2));
    check("a new scale");
}

}  // namespace
}  // namespace host
