#pragma once

#include <string>

#include "helpers/ControlHelper.h"
#include "helpers/ControlShape.h"
#include "host/classes/HostClassDesc.h"
#include "host/object/IParamBlock2.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace zorvanta::test {

// A scene with the host's classes and the control helper and shape registered as the
// plug-in registers them, seen through a recording window from the top.
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
        static host::HostClassDesc<ControlShape> shapeDesc(
            L"Control Shape", L"ControlShape", ControlShape::kSuperClassId, ControlShape::kClassId);
        static const bool shapeDescribed = (ControlShape::DescribeBlocks(&shapeDesc), true);
        (void)shapeDescribed;
        host::ClassRegistry::Instance().Register(&shapeDesc);
    }

    // A control helper node at position.
    host::INode* MakeControl(const wchar_t* name, const host::Point3& position = {}) {
        return Place(new ControlHelper, name, position);
    }
    static ControlHelper* Helper(host::INode* node) {
        return dynamic_cast<ControlHelper*>(node->GetObjectRef());
    }
    // A control shape node at position.
    host::INode* MakeShape(const wchar_t* name, const host::Point3& position = {}) {
        return Place(new ControlShape, name, position);
    }
    static ControlShape* Shape(host::INode* node) {
        return dynamic_cast<ControlShape*>(node->GetObjectRef());
    }

private:
    host::INode* Place(host::Object* object, const wchar_t* name, const host::Point3& position) {
        host::INode* node = ip->CreateObjectNode(object, name);
        node->SetNodeTM(0, host::TransMatrix(position));
        return node;
    }
};

// Every value of a block at time 0, as text, to compare blocks whole.
inline std::wstring BlockText(host::IParamBlock2* pb) {
    std::wstring text;
    for (int i = 0; i < pb->NumParams(); ++i) {
        const host::ParamID id = pb->IndexToID(i);
        const host::ParamType2 type = pb->GetDesc()->GetParamDef(id)->type;
        text += std::to_wstring(id) + L":";
        switch (host::KindOf(type)) {
            case host::ValueKind::Float:
                text += std::to_wstring(pb->GetFloat(id, 0));
                break;
            case host::ValueKind::Int:
                text += std::to_wstring(pb->GetInt(id, 0));
                break;
            case host::ValueKind::Point3: {
                const host::Point3 p = pb->GetPoint3(id, 0);
                text += std::to_wstring(p.x) + L"," + std::to_wstring(p.y) + L"," +
                        std::to_wstring(p.z);
                break;
            }
            case host::ValueKind::Matrix:
                for (int r = 0; r < 4; ++r) {
                    const host::Point3 row = pb->GetMatrix3(id, 0).GetRow(r);
                    text += std::to_wstring(row.x) + L"," + std::to_wstring(row.y) + L"," +
                            std::to_wstring(row.z) + L";";
                }
                break;
            default:
                text += std::to_wstring(reinterpret_cast<uintptr_t>(pb->GetReference(i)));
        }
        text += L" ";
    }
    return text;
}

}  // namespace zorvanta::test
