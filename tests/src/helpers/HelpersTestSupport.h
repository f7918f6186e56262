#pragma once

#include "helpers/ControlHelper.h"
#include "host/classes/HostClassDesc.h"
#include "host/object/IParamBlock2.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace zorvanta::test {

// A scene with the host's classes and the control helper registered as the plug-in
// registers it, seen through a recording window from the top.
class HelperTest : public host::test::ViewTest {
protected:
    void SetUp() override {
        ViewTest::SetUp();
        static host::HostClassDesc<ControlHelper> desc(L"Control Helper", L"ControlHelper",
                                                       ControlHelper::kSuperClassId,
                                                       ControlHelper::kClassId);
        static const bool described = (ControlHelper::DescribeBlocks(&desc), true);
        (void)described;
        host::ClassRegistry::Instance().Register(&desc);
    }

    // A control helper node at position.
    host::INode* MakeControl(const wchar_t* name, const host::Point3& position = {}) {
        host::INode* node = ip->CreateObjectNode(new ControlHelper, name);
        node->SetNodeTM(0, host::TransMatrix(position));
        return node;
    }
    static ControlHelper* Helper(host::INode* node) {
        return dynamic_cast<ControlHelper*>(node->GetObjectRef());
    }
};

}  // namespace zorvanta::test
