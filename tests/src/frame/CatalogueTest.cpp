#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <fstream>
#include <set>
#include <string>

#include "frame/Catalogue.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "helpers/HelperIds.h"
#include "host/classes/HostClasses.h"
#include "host/io/ChunkWriter.h"
#include "host/io/CloneRemapDir.h"
#include "host/object/Control.h"
#include "host/object/FPInterfaceDesc.h"
#include "host/object/INode.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "host/object/PluginLoader.h"
#include "host/object/ShapeObject.h"
#include "host/object/TrackBarFilterManager.h"
#include "tests/host/io/SaveLoadTestSupport.h"

extern "C" host::ClassDesc2* LibClassDesc(unsigned int i);
extern "C" int LibNumberClasses();
extern "C" unsigned long LibVersion();
extern "C" const wchar_t* LibDescription();

namespace zorvanta::test {
namespace {

using namespace host;

// The host started once for the whole executable, with the plug-in folder the build
// put the library in: the path of a real start-up.
class Plugin : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        std::vector<std::string> errors;
        StartHostWithPlugins({ZV_PLUGIN_DIR}, errors);
        for (const std::string& e : errors) ADD_FAILURE() << e;
    }
};

TEST_F(Plugin, LoadsOnceAndRegistersEveryDescriptor) {
    ASSERT_EQ(LoadedPlugins().size(), 1u);
    const host::Plugin& plugin = LoadedPlugins().front();
    EXPECT_EQ(plugin.description, WStr(L"Zorvanta"));
    EXPECT_EQ(plugin.version, 0x55f03700ul);
    EXPECT_EQ(plugin.classes.size(), 68u);
    std::string error;
    EXPECT_TRUE(LoadPlugin(plugin.path, error)) << "a second load is no load";
    EXPECT_EQ(LoadedPlugins().size(), 1u);
    for (ClassDesc2* desc : plugin.classes)
        EXPECT_EQ(ClassRegistry::Instance().Find(desc->SuperClassID(), desc->ClassID()), desc);
}

TEST_F(Plugin, RefusesFilesThatAreNotClassLibraries) {
    const std::string bogus = testing::TempDir() + "not_a_library.so";
    std::ofstream(bogus) << "text";
    std::string error;
    EXPECT_FALSE(LoadPlugin(bogus, error));
    EXPECT_NE(error.find("not_a_library.so"), std::string::npos) << error;
    std::vector<std::string> errors;
    EXPECT_EQ(LoadPluginFolder(testing::TempDir() + "no such folder", errors), 0);
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(LoadedPlugins().size(), 1u);
}

// The catalogue's rules, row by row, and the rows the scene files depend on.
TEST_F(Plugin, CatalogueKeepsItsIdentities) {
    ASSERT_EQ(LibNumberClasses(), 68);
    EXPECT_EQ(LibClassDesc(68), nullptr);
    std::set<std::pair<SClass_ID, Class_ID>> pairs;
    for (unsigned i = 0; i < 68; ++i) {
        ClassDesc2* desc = LibClassDesc(i);
        ASSERT_NE(desc, nullptr) << i;
        EXPECT_TRUE(pairs.insert({desc->SuperClassID(), desc->ClassID()}).second) << i;
        const uint32_t family = desc->ClassID().PartA();
        EXPECT_TRUE(i == 2 || (family >= 0x45596d56 && family <= 0x45596d58)) << i;
        ASSERT_NE(desc->ClassName(), nullptr) << i;
        EXPECT_GT(std::wcslen(desc->ClassName()), 0u) << i;
        EXPECT_NE(desc->HInstance(), nullptr);
    }
    struct Row {
        unsigned index;
        SClass_ID superClass;
        Class_ID id;
        const wchar_t* name;
        const wchar_t* internal;
        const wchar_t* category;
        int isPublic;
    };
    const Row rows[] = {
        {0,
         CTRL_FLOAT_CLASS_ID,
         {0x45596d56, 0x1e847b36},
         L"Static Float",
         L"StaticFloat",
         L"Animation",
         1},
        {2,
         REF_TARGET_CLASS_ID,
         {0x8443dfa5, 0x3f434885},
         L"MsgChecker",
         L"MsgChecker",
         L"Animation",
         1},
        {15,
         HELPER_CLASS_ID,
         {0x45596d57, 0x1e847b30},
         L"Control Helper",
         L"ControlHelper",
         L"Helper",
         1},
        {22,
         REF_TARGET_CLASS_ID,
         {0x45596d56, 0x1e847f06},
         L"Vertical Offset",
         L"UIAction",
         L"Animation",
         1},
        {28, HELPER_CLASS_ID, {0x45596d57, 0x1e847b40}, L"Rig", L"Rig", L"", 0},
        {29, SYSTEM_CLASS_ID, {0x45596d57, 0x1e847b41}, L"Rig", L"Rig", L"", 1},
        {44,
         CTRL_MATRIX3_CLASS_ID,
         {0x45596d56, 0x1e847b58},
         L"Rig Transform",
         L"RigTransform",
         L"Animation",
         1},
        {57,
         CTRL_FLOAT_CLASS_ID,
         {0x45596d56, 0x1e847b67},
         L"Dummy Float",
         L"DummyFloat",
         L"Animation",
         0},
        {64,
         SHAPE_CLASS_ID,
         {0x45596d57, 0xed40c435},
         L"Control Shape",
         L"ControlShape",
         L"Splines",
         1},
        {67,
         CTRL_ROTATION_CLASS_ID,
         {0x45596d56, 0x1e847b74},
         L"Rotation XYZ",
         L"Rotation XYZ",
         L"Animation",
         1},
    };
    for (const Row& row : rows) {
        ClassDesc2* desc = LibClassDesc(row.index);
        SCOPED_TRACE(row.index);
        EXPECT_EQ(desc->SuperClassID(), row.superClass);
        EXPECT_EQ(desc->ClassID(), row.id);
        EXPECT_STREQ(desc->ClassName(), row.name);
        EXPECT_STREQ(desc->InternalName(), row.internal);
        EXPECT_STREQ(desc->Category(), row.category);
        EXPECT_EQ(desc->IsPublic(), row.isPublic);
    }
}

// One word pair, two superclasses: the lookup key is always the pair with the superclass.
TEST_F(Plugin, SharedWordPairsFindTheirOwnClass) {
    auto internal = [](SClass_ID sc, Class_ID id) {
        ClassDesc2* desc = ClassRegistry::Instance().Find(sc, id);
        return desc ? WStr(desc->InternalName()) : WStr(L"(none)");
    };
    const Class_ID shared(0x45596d56, 0x1e847b68);
    EXPECT_EQ(internal(REF_TARGET_CLASS_ID, shared), WStr(L"AnimLayersLocalWeights"));
    EXPECT_EQ(internal(CTRL_ROTATION_CLASS_ID, shared), WStr(L"DummyRotation"));
    EXPECT_EQ(internal(CTRL_FLOAT_CLASS_ID, {0x45596d56, 0x1e847f0a}), WStr(L"PoseKitHolder"));
    EXPECT_EQ(internal(REF_TARGET_CLASS_ID, {0x45596d56, 0x1e847f0a}), WStr(L"UI2DSpinner"));
    EXPECT_EQ(internal(CTRL_MATRIX3_CLASS_ID, {0x45596d56, 0x1e847b60}), WStr(L"IKFKChain"));
    EXPECT_EQ(internal(CTRL_ROTATION_CLASS_ID, {0x45596d56, 0x1e847b60}),
              WStr(L"RotationConnection"));
    // The rig's two identities name one class, and each makes an object of it.
    ClassDesc2* rig = ClassRegistry::Instance().Find(HELPER_CLASS_ID, RIG_CLASS_ID);
    ClassDesc2* system = ClassRegistry::Instance().Find(SYSTEM_CLASS_ID, RIG_SYSTEM_CLASS_ID);
    ASSERT_TRUE(rig && system);
    EXPECT_STREQ(static_cast<CatalogueClassDesc*>(rig)->Row().className, L"RigSystem");
    EXPECT_STREQ(static_cast<CatalogueClassDesc*>(system)->Row().className, L"RigSystem");
    auto* byHelper = dynamic_cast<ReferenceTarget*>(CreateInstance(HELPER_CLASS_ID, RIG_CLASS_ID));
    auto* bySystem =
        dynamic_cast<ReferenceTarget*>(CreateInstance(SYSTEM_CLASS_ID, RIG_SYSTEM_CLASS_ID));
    ASSERT_TRUE(byHelper && bySystem);
    EXPECT_EQ(typeid(*byHelper), typeid(*bySystem));
    byHelper->DeleteMe();
    bySystem->DeleteMe();
}

// Reads a controller of any type the same way: relatively, from 0 or the identity.
std::vector<float> Reading(Control* c) {
    Interval valid = FOREVER;
    if (c->SuperClassID() == CTRL_FLOAT_CLASS_ID) {
        float v = 0.0f;
        c->GetValue(0, &v, valid, CTRL_RELATIVE);
        return {v};
    }
    Matrix3 tm;
    c->GetValue(0, &tm, valid, CTRL_RELATIVE);
    std::vector<float> values;
    for (int row = 0; row < 4; ++row)
        for (int axis = 0; axis < 3; ++axis) values.push_back(tm[row][axis]);
    return values;
}

// A value unlike the class's start, written the way its type is written.
void WriteSample(Control* c) {
    float f = 1.25f;
    Point3 p(1, 2, 3);
    Quat q = Normalize(Quat(0.2f, 0.1f, 0.3f, 0.9f));
    ScaleValue s(Point3(2, 3, 4));
    SetXFormPacket set;
    set.tmAxis = TransMatrix(p);
    void* values[] = {&f, &set, &p, &q, &s};
    const SClass_ID types[] = {CTRL_FLOAT_CLASS_ID, CTRL_MATRIX3_CLASS_ID, CTRL_POSITION_CLASS_ID,
                               CTRL_ROTATION_CLASS_ID, CTRL_SCALE_CLASS_ID};
    for (int i = 0; i < 5; ++i)
        if (c->SuperClassID() == types[i]) c->SetValue(0, values[i]);
}

// Every controller the library can make saves, loads and clones to the same value; one
// that saves nothing and refers to nothing loads to its start. (Objects have their own
// tests.)
TEST_F(Plugin, EveryCreatableClassSavesLoadsAndClones) {
    int made = 0;
    for (unsigned i = 0; i < 68; ++i) {
        ClassDesc2* desc = LibClassDesc(i);
        auto* object = static_cast<ReferenceTarget*>(desc->Create(false));
        if (!object) continue;
        SCOPED_TRACE(desc->InternalName());
        auto* control = dynamic_cast<Control*>(object);
        if (!control) {
            object->DeleteMe();
            continue;
        }
        ++made;
        const std::vector<float> start = Reading(control);
        WriteSample(control);
        const std::vector<float> value = Reading(control);
        // A dummy float without an inner track has nowhere to put a value.
        if (desc->ClassID() != DUMMY_FLOAT_CLASS_ID) {
            EXPECT_NE(value, start);
        }

        auto* clone = dynamic_cast<Control*>(CloneRefHierarchy(object));
        ASSERT_NE(clone, nullptr);
        EXPECT_EQ(Reading(clone), value);
        auto* loaded = host::test::SaveAndLoad(control);
        ASSERT_NE(loaded, nullptr);
        ChunkWriter saved;
        control->Save(&saved);
        const bool keepsNothing = saved.Bytes().empty() && control->NumRefs() == 0;
        EXPECT_EQ(Reading(loaded), keepsNothing ? start : value);
        for (Control* c : {control, clone, loaded}) c->DeleteMe();
    }
    EXPECT_EQ(made, 11);
}

// The rig build makes every control as a control shape by its class id: it comes with
// both blocks and its published interface, and builds its default outline.
TEST_F(Plugin, ControlShapeIsMadeByItsClassId) {
    auto* shape =
        dynamic_cast<ShapeObject*>(CreateInstance(SHAPE_CLASS_ID, CONTROL_SHAPE_CLASS_ID));
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(shape->GetClassName(), WStr(L"Control Shape"));
    ASSERT_EQ(shape->NumParamBlocks(), 2);
    EXPECT_EQ(shape->GetParamBlock(0)->GetInt(CH_TYPE), 9);
    EXPECT_FLOAT_EQ(shape->GetParamBlock(0)->GetFloat(CS_SCALE), 1.0f);
    EXPECT_NE(shape->GetInterface(CONTROL_SHAPE_INTERFACE_ID), nullptr);
    const auto& published =
        ClassRegistry::Instance().Find(SHAPE_CLASS_ID, CONTROL_SHAPE_CLASS_ID)->Interfaces();
    ASSERT_EQ(published.size(), 1u);
    EXPECT_EQ(published[0]->GetName(), WStr(L"IControlShape"));
    Box3 box;
    shape->GetLocalBoundBox(0, nullptr, nullptr, box);
    EXPECT_TRUE(box.Contains(Point3(10, 0, 0)) && !box.Contains(Point3(11, 0, 0)));
    shape->DeleteMe();
}

TEST_F(Plugin, KeyFiltersAreRegisteredAtStartUp) {
    auto* manager =
        dynamic_cast<TrackBarFilterManager*>(GetCOREInterface(TRACKBAR_FILTER_MANAGER_INTERFACE));
    ASSERT_NE(manager, nullptr);
    const int layer = manager->FindFilter(LAYER_KEY_FILTER_ID);
    const int rotation = manager->FindFilter(ROTATION_KEY_FILTER_ID);
    ASSERT_GE(layer, 0);
    ASSERT_GE(rotation, 0);
    EXPECT_EQ(manager->GetFilter(layer).name, WStr(L"Animation Layers Active Filter"));
    EXPECT_TRUE(manager->GetFilter(layer).active && manager->GetFilter(layer).stopTraversal);
    EXPECT_EQ(manager->GetFilter(rotation).name, WStr());
    EXPECT_TRUE(manager->GetFilter(rotation).active);
    EXPECT_FALSE(manager->GetFilter(rotation).stopTraversal);
}

// The rotation filter shows an Euler rotation controller's keys once, through the
// controller: its X, Y and Z tracks drop out; the tracks of other controllers stay.
TEST_F(Plugin, RotationFilterDropsTheEulerControllersOwnTracks) {
    TrackBarFilterManager& manager = TrackBarFilterManager::Instance();
    Interface* ip = GetCOREInterface();
    INode* node = ip->CreateObjectNode(nullptr);
    Control* prs = node->GetTMController();
    auto shown = [&](Animatable* track) {
        const std::vector<Animatable*> tracks = manager.FilteredTracks(node);
        return std::find(tracks.begin(), tracks.end(), track) != tracks.end();
    };
    EXPECT_TRUE(shown(prs->GetRotationController()->GetXController()));
    auto* rotation =
        static_cast<Control*>(CreateInstance(CTRL_ROTATION_CLASS_ID, ROTATION_XYZ_CLASS_ID));
    ASSERT_NE(rotation, nullptr);
    ASSERT_TRUE(prs->SetRotationController(rotation));
    EXPECT_TRUE(shown(rotation));
    for (int i = 0; i < rotation->NumSubs(); ++i) EXPECT_FALSE(shown(rotation->SubAnim(i))) << i;
    EXPECT_TRUE(shown(prs->GetPositionController()->GetXController()));
    ip->Reset();
}

TEST_F(Plugin, StringsShareOneBuffer) {
    const wchar_t* first = GetString(IDS_SELECT_OBJECT);
    EXPECT_STREQ(first, L"Select Object");
    const wchar_t* second = GetString(IDS_PARAMETER_CHANGE);
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, L"Parameter Change");
    EXPECT_EQ(GetString(1), nullptr);
    EXPECT_EQ(GetString(100), nullptr);
    const std::pair<int, const wchar_t*> given[] = {
        {156, L"None"},
        {256, L"Vertical Offset"},
        {342, L"Rig System Change"},
        {609, L"Create Rig"},
        {962, L"Animation Layers Active Filter"},
        {985, L"Load Rig Template"},
        {986, L"Rig Template Files (*.rig)"},
        {989, L"Load Rig Template File"},
        {990, L"All Files (*.*)"},
        {1025, L"Transfering Animation"},
    };
    for (auto [id, text] : given) EXPECT_STREQ(GetString(id), text) << id;
}

}  // namespace
}  // namespace zorvanta::test
