#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/io/SceneWriter.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "rig/RigIds.h"
#include "rig/RigSystem.h"

namespace zorvanta::test {

// The host started once with the toolkit's plug-in (so that every class the build asks
// the class factory for is there as it would be for a user), and an empty scene around
// each test.
class RigTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        std::vector<std::string> errors;
        host::StartHostWithPlugins({ZV_PLUGIN_DIR}, errors);
        for (const std::string& e : errors) ADD_FAILURE() << e;
    }
    void SetUp() override { ip->Reset(); }
    void TearDown() override { ip->Reset(); }

    // A rig object of type on a node named "RigObject", made outside undo.
    RigSystem* MakeRig(int type = kRigBiped) {
        auto* rig =
            dynamic_cast<RigSystem*>(host::CreateInstance(host::HELPER_CLASS_ID, RIG_CLASS_ID));
        EXPECT_NE(rig, nullptr) << "the plug-in makes the rig object";
        if (!rig) return nullptr;
        rigNode = ip->CreateObjectNode(rig, L"RigObject");
        rig->SetType(type);
        return rig;
    }
    // The nodes in the rig's node table, by name, in table order.
    static std::vector<std::wstring> BuiltNames(RigSystem* rig) {
        std::vector<std::wstring> names;
        host::IParamBlock2* pb = rig->Block();
        for (int i = 0; i < pb->Count(RIG_NODES); ++i)
            if (auto* node = dynamic_cast<host::INode*>(pb->GetReferenceTarget(RIG_NODES, 0, i)))
                names.emplace_back(node->GetName());
        return names;
    }
    // Every node under the root, by name, depth first.
    std::vector<std::wstring> SceneNames() {
        std::vector<std::wstring> names;
        Collect(ip->GetRootNode(), names);
        return names;
    }
    std::vector<uint8_t> SceneBytes() {
        std::string error;
        std::vector<uint8_t> bytes = host::SceneWriter::Write(*ip, &error);
        EXPECT_FALSE(bytes.empty()) << error;
        return bytes;
    }

    host::Interface* ip = host::GetCOREInterface();
    host::INode* rigNode = nullptr;

private:
    static void Collect(host::INode* node, std::vector<std::wstring>& names) {
        for (int i = 0; i < node->NumberOfChildren(); ++i) {
            names.emplace_back(node->GetChildNode(i)->GetName());
            Collect(node->GetChildNode(i), names);
        }
    }
};

}  // namespace zorvanta::test
