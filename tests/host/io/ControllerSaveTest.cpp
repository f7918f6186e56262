#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <type_traits>
#include <vector>

#include "host/classes/BezierFloat.h"
#include "host/classes/BezierPosition.h"
#include "host/classes/BezierScale.h"
#include "host/classes/EulerXYZ.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClasses.h"
#include "host/classes/LinkControl.h"
#include "host/classes/OrientationConstraint.h"
#include "host/classes/PRS.h"
#include "host/classes/PositionXYZ.h"
#include "host/classes/ScaleXYZ.h"
#include "host/classes/TcbFloat.h"
#include "host/classes/TcbPosition.h"
#include "host/classes/TcbRotation.h"
#include "host/classes/TcbScale.h"
#include "host/classes/ValueList.h"
#include "host/object/Interface.h"
#include "tests/host/io/SaveLoadTestSupport.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

class ControllerSave : public SceneTest {};

// Both controllers read alike (relatively: a float added to 0, a matrix from the
// identity) before, between and after the keys, validity included.
template <class Read>
void ExpectSameReads(Control* original, Control* copy) {
    for (TimeValue t = -5000; t <= 9000; t += 97) {
        Read a{}, b{};
        Interval va = FOREVER, vb = FOREVER;
        original->GetValue(t, &a, va, CTRL_RELATIVE);
        copy->GetValue(t, &b, vb, CTRL_RELATIVE);
        ASSERT_TRUE(a == b && va == vb) << "at " << t;
    }
}

// Values of every key type, varying with x; scale factors stay positive.
void Fill(float& v, float x) {
    v = x;
}
void Fill(Point3& v, float x) {
    v = Point3(x, 0.5f - x, 2.0f * x);
}
void Fill(Quat& v, float x) {
    v = Normalize(Quat(x, 0.2f, -0.1f, 1.0f));
}
void Fill(AngAxis& v, float x) {
    v = AngAxis(Normalize(Point3(1, x, 0.5f)), 3 * x);
}
void Fill(ScaleValue& v, float x) {
    v = ScaleValue(Point3(1 + x * x, 2, 0.5f), Normalize(Quat(x, 0.2f, -0.1f, 1)));
}

// Key i with every field of its kind set, tangent types and TCB shapes varying.
template <class Key>
Key MakeKey(int i) {
    Key key;
    const float x = 0.7f * float(i) - 1.2f;
    key.time = i * 700 + (i % 2) * 130;
    Fill(key.val, x);
    if constexpr (std::is_base_of_v<ITCBKey, Key>) {
        key.tens = 0.3f * x, key.cont = -0.2f * x, key.bias = 0.4f;
        key.easeIn = 0.1f * float(i), key.easeOut = 0.25f;
    } else {
        key.flags =
            SetOutTanType(SetInTanType(0, BezierTangent(i % 7)), BezierTangent((i + 5) % 7));
        Fill(key.intan, -x), Fill(key.outtan, x);
        Fill(key.inLength, 0.25f), Fill(key.outLength, 0.4f);
    }
    key.flags |= i == 2 ? IKEY_SELECTED : 0;
    return key;
}

template <class C, class K, class V>
struct Track {
    using Control = C;
    using Key = K;
    using Value = V;
    using Read = std::conditional_t<std::is_same_v<V, float>, float, Matrix3>;
};
template <class T>
class KeyframedSave : public ControllerSave {};
using Tracks = ::testing::Types<
    Track<BezierFloat, IBezFloatKey, float>, Track<BezierPosition, IBezPoint3Key, Point3>,
    Track<BezierScale, IBezScaleKey, ScaleValue>, Track<TcbFloat, ITCBFloatKey, float>,
    Track<TcbPosition, ITCBPoint3Key, Point3>, Track<TcbScale, ITCBScaleKey, ScaleValue>,
    Track<TcbRotation, ITCBRotKey, Quat>>;
TYPED_TEST_SUITE(KeyframedSave, Tracks);

// Keys (appended out of order: a load sorts them), out-of-range types, and the value a
// track holds without keys.
TYPED_TEST(KeyframedSave, CopyHasTheSameKeysAndValues) {
    using Key = typename TypeParam::Key;
    auto* keyed = new typename TypeParam::Control;
    for (int i : {3, 0, 5, 1, 4, 2}) {
        Key key = MakeKey<Key>(i);
        keyed->AppendKey(&key);
    }
    keyed->SetORT(ORT_OSCILLATE, ORT_BEFORE);
    keyed->SetORT(ORT_RELATIVE_REPEAT, ORT_AFTER);
    auto* keyedCopy = SaveAndLoad(keyed);
    ASSERT_NE(keyedCopy, nullptr);
    keyed->SortKeys();
    ASSERT_EQ(keyedCopy->GetNumKeys(), 6);
    for (int i = 0; i < 6; ++i) {
        Key a, b;
        keyed->GetKey(i, &a);
        keyedCopy->GetKey(i, &b);
        EXPECT_EQ(std::memcmp(&a, &b, sizeof(Key)), 0) << "key " << i;
    }
    ExpectSameReads<typename TypeParam::Read>(keyed, keyedCopy);
    LoadEveryPrefix(keyed);

    auto* held = new typename TypeParam::Control;
    typename TypeParam::Value v;
    Fill(v, 0.8f);
    held->SetValue(0, &v);
    auto* heldCopy = SaveAndLoad(held);
    ASSERT_NE(heldCopy, nullptr);
    ExpectSameReads<typename TypeParam::Read>(held, heldCopy);
    for (ReferenceTarget* c : {keyed, keyedCopy, held, heldCopy}) c->DeleteMe();
}

// The other controllers: an Euler order, list entries, target weights and link times
// beside references the copy shares. Made for loading, none makes sub-controllers that
// the references would leak.
TEST_F(ControllerSave, OtherControllersReadAlike) {
    auto* euler = new EulerXYZ;
    euler->SetOrder(5);
    Quat q;
    Fill(q, 0.7f);
    euler->SetValue(0, &q);
    auto* list = new PositionList;
    for (const wchar_t* name : {L"", L"Sway", L"Offset"}) {
        Point3 p;
        Fill(p, float(list->GetCount()));
        list->Append(NewDefaultPositionController(), WStr(name));
        list->GetSubCtrl(list->GetCount() - 1)->SetValue(0, &p);
    }
    list->SetWeight(1, 0.5f);
    list->SetActive(2);
    INode* targets[2] = {ip->CreateObjectNode(nullptr), ip->CreateObjectNode(nullptr)};
    targets[0]->SetNodeTM(0, RotateZMatrix(1.0f));
    targets[1]->SetNodeTM(0, RotateXMatrix(0.5f) * TransMatrix(Point3(1, 2, 3)));
    auto* orientation = new OrientationConstraint;
    orientation->AppendTarget(targets[0], 30.0f);
    orientation->AppendTarget(targets[1], 70.0f);
    auto* link = new LinkControl;
    link->AddTarget(targets[0], 100);
    link->AddWorld(500);
    link->AddTarget(targets[1], 900);
    const std::vector<Control*> controllers = {euler, new PositionXYZ,  new ScaleXYZ, new PRS,
                                               list,  new RotationList, orientation,  link};
    for (Control* original : controllers) {
        Control* copy = SaveAndLoad(original);
        ASSERT_NE(copy, nullptr);
        ExpectSameReads<Matrix3>(original, copy);
        LoadEveryPrefix(original);
        if (auto* entries = dynamic_cast<ListControl*>(copy)) {
            EXPECT_EQ(entries->GetActive(), original == list ? 2 : -1);
            for (int i = 0; i < entries->GetCount(); ++i)
                EXPECT_EQ(entries->GetName(i), list->GetName(i));
        }
        copy->DeleteMe();
    }
    for (Control* c : controllers) c->DeleteMe();
}

// Loads what write puts into a new instance made for loading, expecting a refusal; the
// reader's error.
std::string RefusalOf(ClassDesc2* desc, const std::function<void(ChunkWriter&)>& write) {
    ChunkWriter writer;
    write(writer);
    auto* object = static_cast<ReferenceTarget*>(desc->Create(true));
    ChunkReader reader(writer.Bytes());
    SetLoading(true);
    EXPECT_EQ(object->Load(&reader), IO_ERROR);
    SetLoading(false);
    object->DeleteMe();
    return reader.Error();
}

TEST_F(ControllerSave, CountsBeyondTheChunkAndBadValuesAreRefused) {
    using namespace chunks;
    const std::pair<ClassDesc2*, uint16_t> tables[] = {
        {GetBezierScaleDesc(), CTRL_KEYS},
        {GetRotationListDesc(), CTRL_LIST_ENTRIES},
        {GetOrientationConstraintDesc(), CTRL_TARGET_WEIGHTS},
        {GetLinkControlDesc(), CTRL_LINK_TIMES}};
    for (auto [desc, id] : tables) {
        const std::string error =
            RefusalOf(desc, [id](ChunkWriter& w) { w.WriteChunk(id, uint32_t(1) << 30); });
        EXPECT_NE(error.find("more than its chunk holds"), std::string::npos) << error;
    }

    // Values no edit can make; the link times are those of two links in reverse.
    auto one = [](uint16_t id, int32_t value) {
        return [=](ChunkWriter& w) { w.WriteChunk(id, value); };
    };
    RefusalOf(GetTcbFloatDesc(), one(CTRL_ORT_AFTER, ORT_IDENTITY));
    RefusalOf(GetEulerXYZDesc(), one(CTRL_EULER_ORDER, 9));
    RefusalOf(GetFloatListDesc(), one(CTRL_LIST_ACTIVE, 0));
    RefusalOf(GetLinkControlDesc(), [](ChunkWriter& w) {
        w.BeginChunk(CTRL_LINK_TIMES);
        w.WriteValue(uint32_t(2));
        for (TimeValue t : {300, 200}) w.WriteValue(t);
        w.EndChunk();
    });
}

}  // namespace
}  // namespace host::test
