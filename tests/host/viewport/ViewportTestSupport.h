#pragma once

#include <gtest/gtest.h>

#include "host/classes/HostClasses.h"
#include "host/object/ClassRegistry.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/viewport/RecordingGraphicsWindow.h"
#include "host/viewport/SceneView.h"
#include "host/viewport/Viewport.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {

// A scene with the host's classes, seen through a recording window of 400 by 300
// pixels from the top.
class ViewTest : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        ClassRegistry::Instance().Register(GetTextShapeDesc());
    }

    // A new node holding a new object of the class, its block's parameters at hand.
    INode* MakeNode(SClass_ID superClass, Class_ID id, const wchar_t* name) {
        auto* object = dynamic_cast<Object*>(CreateInstance(superClass, id));
        INode* node = ip->CreateObjectNode(object, name);
        return node;
    }
    static IParamBlock2* Params(INode* node) { return node->GetObjectRef()->GetParamBlock(0); }

    // Draws the node alone into a cleared recorder.
    void DrawNode(INode* node, TimeValue t = 0) {
        gw.Reset();
        node->EvalWorldState(t).obj->Display(t, node, &view, 0);
    }
    // The box of the world points of every recorded line.
    Box3 RecordedWorldBox() const {
        Box3 box;
        for (const GWLine& line : gw.Lines()) box += line.world[0], box += line.world[1];
        return box;
    }

    RecordingGraphicsWindow gw{400, 300};
    Viewport view{gw, VIEW_TOP};
};

}  // namespace host::test
