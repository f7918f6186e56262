#include <gtest/gtest.h>

#include "host/object/ClassRegistry.h"
#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

// A descriptor of TestTarget under any identity, remembering how it was asked to create.
class TestDesc : public ClassDesc2 {
public:
    TestDesc(SClass_ID sclass, Class_ID id) : sclass_(sclass), id_(id) {}
    int IsPublic() override { return 1; }
    Animatable* Create(bool loading) override {
        lastLoading = loading;
        return new TestTarget;
    }
    const wchar_t* ClassName() override { return L"Test Target"; }
    SClass_ID SuperClassID() override { return sclass_; }
    Class_ID ClassID() override { return id_; }
    const wchar_t* Category() override { return L""; }
    bool lastLoading = true;

private:
    SClass_ID sclass_;
    Class_ID id_;
};

TEST(ClassRegistry, FindsClassesByTheirSuperclassAndIdPair) {
    const Class_ID shared(0x45596D56, 0x1E847B40);
    TestDesc asMatrix(CTRL_MATRIX3_CLASS_ID, shared), asSystem(SYSTEM_CLASS_ID, shared),
        clash(CTRL_MATRIX3_CLASS_ID, shared);
    auto& registry = ClassRegistry::Instance();
    ASSERT_TRUE(registry.Register(&asMatrix));
    ASSERT_TRUE(registry.Register(&asSystem));  // one word pair, two superclasses
    EXPECT_FALSE(registry.Register(&clash));    // the pair is taken
    EXPECT_EQ(registry.Find(CTRL_MATRIX3_CLASS_ID, shared), &asMatrix);
    EXPECT_EQ(registry.Find(SYSTEM_CLASS_ID, shared), &asSystem);
    EXPECT_EQ(registry.Find(CTRL_FLOAT_CLASS_ID, shared), nullptr);

    Animatable* made = CreateInstance(SYSTEM_CLASS_ID, shared);
    ASSERT_NE(made, nullptr);
    EXPECT_FALSE(asSystem.lastLoading);  // a user creation makes its defaults
    static_cast<TestTarget*>(made)->DeleteMe();

    registry.Unregister(&clash);  // not the registered one: nothing changes
    EXPECT_EQ(registry.Find(CTRL_MATRIX3_CLASS_ID, shared), &asMatrix);
    registry.Unregister(&asMatrix);
    registry.Unregister(&asSystem);
    EXPECT_EQ(registry.Find(SYSTEM_CLASS_ID, shared), nullptr);
}

}  // namespace
}  // namespace host
