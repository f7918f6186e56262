#pragma once

#include <random>

#include "host/classes/HostClasses.h"
#include "host/classes/IKeyControl.h"
#include "host/classes/ListControl.h"
#include "host/object/Animate.h"
#include "host/object/ClassRegistry.h"
#include "host/object/HostClassIds.h"
#include "host/object/ILayerManager.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {

// The scene of tests/data/sample_scene.tnx: a small keyed hierarchy of helpers and bones
// with a TCB rotation, a position list, a custom track, two nested layers and a selection. The file
// was written from this scene; a test loads the file and compares it with a fresh build,
// so that files written by earlier versions keep loading.
inline void BuildSampleScene(Interface& ip) {
    std::mt19937 rng(2024);
    auto make = [&ip](Class_ID id, SClass_ID superClass, const wchar_t* name) {
        auto* object = dynamic_cast<Object*>(CreateInstance(superClass, id));
        INode* node = ip.CreateObjectNode(object);
        node->SetName(name);
        return node;
    };
    INode* pelvis = make(POINT_HELPER_CLASS_ID, HELPER_CLASS_ID, L"Pelvis");
    INode* spine = make(BONE_OBJECT_CLASS_ID, GEOMOBJECT_CLASS_ID, L"Spine");
    INode* head = make(BONE_OBJECT_CLASS_ID, GEOMOBJECT_CLASS_ID, L"Head");
    INode* tail = make(POINT_HELPER_CLASS_ID, HELPER_CLASS_ID, L"Tail");
    pelvis->AttachChild(spine, false);
    spine->AttachChild(head, false);
    pelvis->AttachChild(tail, false);
    KeyNode(pelvis, {0, 480, 960, 1920}, rng);
    KeyNode(head, {0, 960, 2400}, rng);

    auto* tcb =
        static_cast<Control*>(CreateInstance(CTRL_ROTATION_CLASS_ID, TCB_ROTATION_CLASS_ID));
    spine->GetTMController()->SetRotationController(tcb);
    AnimateOn();
    for (int k = 0; k < 3; ++k) {
        Quat q(AngAxis(Normalize(Point3(0.2f * float(k), 1, 0)), 0.4f * float(k + 1)));
        tcb->SetValue(k * 800, &q);
    }
    AnimateOff();

    auto* list =
        static_cast<ListControl*>(CreateInstance(CTRL_POSITION_CLASS_ID, POSITION_LIST_CLASS_ID));
    tail->GetTMController()->SetPositionController(list);
    list->Append(
        static_cast<Control*>(CreateInstance(CTRL_POSITION_CLASS_ID, POSITION_XYZ_CLASS_ID)),
        L"Base");
    list->Append(
        static_cast<Control*>(CreateInstance(CTRL_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID)),
        L"Offset");
    list->SetWeight(1, 0.5f);
    list->SetActive(1);

    ILayerManager* layers = ip.GetLayerManager();
    ILayer* rig = layers->CreateLayer(WStr(L"Rig"));
    ILayer* bones = layers->CreateLayer(WStr(L"Bones"));
    bones->SetParentLayer(rig);
    rig->AddToLayer(pelvis);
    bones->AddToLayer(spine);
    bones->AddToLayer(head);

    tail->SetWireColor(RGB(200, 40, 10));
    head->SetObjOffsetPos(Point3(0, 0, 2));
    head->SetTransformLock(0, 2, true);
    auto* tools =
        static_cast<ReferenceTarget*>(CreateInstance(CTRL_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID));
    ip.GetTrackViewRootNode()->AddController(tools, L"Tools", Class_ID(0x51, 0x52));
    ip.GetScene().Select({head, pelvis});
    ip.SetAnimRange(Interval(0, 2400));
    ip.SetTime(480, false);
}

}  // namespace host::test
