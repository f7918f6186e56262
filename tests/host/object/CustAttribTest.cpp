#include <gtest/gtest.h>

#include "host/object/ICustAttribContainer.h"
#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

struct NamedAttrib : CustAttrib {
    static inline int live = 0;
    explicit NamedAttrib(const wchar_t* n) : name(n) { ++live; }
    ~NamedAttrib() override { --live; }
    const wchar_t* GetName() override { return name; }
    const wchar_t* name;
};

std::wstring Names(ICustAttribContainer* c) {
    std::wstring s;
    for (int i = 0; i < c->NumSubs(); ++i) s += c->SubAnimName(i).data();
    return s;
}

TEST(CustomAttributes, EditsAreUndoneAndRedoneExactly) {
    auto* owner = new TestTarget;
    auto* watcher = new TestTarget;
    watcher->ReplaceReference(0, owner);
    owner->AllocCustAttribContainer();
    ICustAttribContainer* c = owner->GetCustAttribContainer();
    ASSERT_NE(c, nullptr);
    auto *a = new NamedAttrib(L"a"), *b = new NamedAttrib(L"b"), *x = new NamedAttrib(L"x");
    c->AppendCustAttrib(a);
    c->AppendCustAttrib(b);
    auto* shared = new TestTarget;  // keeps b alive through its removal below
    shared->ReplaceReference(0, b);
    EXPECT_EQ(watcher->heard.back().message, REFMSG_SUBANIM_STRUCTURE_CHANGED);

    theHold.Begin();
    c->InsertCustAttrib(1, x);
    c->RemoveCustAttrib(0);  // a goes: nothing else refers to it (kept for undo)
    c->RemoveCustAttrib(1);  // b stays: shared refers to it
    theHold.Accept(L"Attributes");
    EXPECT_EQ(Names(c), L"x");
    EXPECT_EQ(NamedAttrib::live, 3);
    EXPECT_FALSE(c->InsertCustAttrib(5, x) || c->InsertCustAttrib(0, nullptr) ||
                 c->RemoveCustAttrib(1));

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(Names(c), L"ab");
    EXPECT_TRUE(c->GetCustAttrib(0) == a && c->SubAnim(1) == b && c->GetCustAttrib(2) == nullptr);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(Names(c), L"x");
    theHold.ClearUndo();
    EXPECT_EQ(NamedAttrib::live, 2);  // a is gone with the record that kept it
    watcher->DeleteMe();              // the owner goes, and its container with it
    EXPECT_EQ(NamedAttrib::live, 1);  // only b, held by shared
    shared->DeleteMe();
    EXPECT_EQ(NamedAttrib::live, 0);
    EXPECT_TRUE(TestTarget::live.empty());
}

}  // namespace
}  // namespace host
