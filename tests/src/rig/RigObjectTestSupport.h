#pragma once

#include <ostream>
#include <string>

#include "host/classes/HostClassDesc.h"
#include "host/core/Utf8.h"
#include "host/object/Hold.h"
#include "host/object/IParamBlock2.h"
#include "rig/RigSystem.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace zorvanta {

// Failures name the points they disagree on.
inline void PrintTo(const RigPoint& p, std::ostream* os) {
    *os << host::Utf8FromWide(p.name.data()) << " (" << p.pos.x << ", " << p.pos.y << ", "
        << p.pos.z << ") parent " << p.parent << " mirror " << p.mirror << " flags " << p.flags
        << " selected " << p.selected;
}

}  // namespace zorvanta

namespace zorvanta::test {

// A scene with the host's classes and the rig object registered as the plug-in's
// catalogue registers it (the Rig identity, which defines the block).
class RigObjectTest : public host::test::SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        static host::HostClassDesc<RigSystem> desc(L"Rig", L"Rig", RigSystem::kSuperClassId,
                                                   RigSystem::kClassId);
        static const bool described = (RigSystem::DescribeBlocks(&desc), true);
        (void)described;
        host::ClassRegistry::Instance().Register(&desc);
        host::theHold.ClearUndo();
    }

    // A rig object on a node named name.
    RigSystem* MakeRig(const wchar_t* name = L"Rig") {
        auto* rig = new RigSystem;
        ip->CreateObjectNode(rig, name);
        return rig;
    }

    // Runs change as one undo step, as the panel and scripts do.
    template <class Change>
    static void Step(Change change) {
        host::theHold.Begin();
        change();
        host::theHold.Accept(host::WStr(L"Test Change"));
    }
    static void SetParam(RigSystem* rig, RigParam id, int value) {
        Step([&] { rig->Block()->SetValue(id, 0, value); });
    }
};

// A point name as plain text, for messages and tables.
inline std::string Narrow(const host::WStr& s) {
    return host::Utf8FromWide(s.data());
}

}  // namespace zorvanta::test
