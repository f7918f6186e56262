// Writes small scenes, one file each, into a folder: the seeds that the scene reader's
// fuzz target starts from besides the checked-in sample. Between them they hold every
// class the host registers, so that each class's Load is reached from the first input.
#include <cstdio>
#include <functional>
#include <string>
#include <utility>

#include "host/classes/EditableMesh.h"
#include "host/classes/HostClasses.h"
#include "host/classes/ICurveCtl.h"
#include "host/classes/LinkControl.h"
#include "host/classes/ListControl.h"
#include "host/classes/MorphModifier.h"
#include "host/classes/OrientationConstraint.h"
#include "host/classes/PolyObject.h"
#include "host/classes/TextShape.h"
#include "host/io/SceneFile.h"
#include "host/object/Animate.h"
#include "host/object/ClassRegistry.h"
#include "host/object/HostClassIds.h"
#include "host/object/IDerivedObject.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/TrackViewNode.h"

namespace host {
namespace {

template <class T>
T* Make(SClass_ID superClass, Class_ID id) {
    return dynamic_cast<T*>(static_cast<Animatable*>(CreateInstance(superClass, id)));
}

// Nodes on every kind of object: helpers, a bone, a text shape, meshes, and a mesh
// under a morph modifier in a derived object.
void BuildObjects(Interface& ip) {
    INode* point = ip.CreateObjectNode(Make<Object>(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID));
    INode* bone = ip.CreateObjectNode(Make<Object>(GEOMOBJECT_CLASS_ID, BONE_OBJECT_CLASS_ID));
    point->AttachChild(bone, false);
    ip.CreateObjectNode(new TextShape, L"Label");
    MNMesh quad;
    for (int v = 0; v < 4; ++v) quad.NewVert(Point3(float(v % 2), float(v / 2), 0));
    quad.NewFace({0, 1, 3, 2});
    auto* poly = new PolyObject;
    poly->GetMesh() = quad;
    ip.CreateObjectNode(poly);
    auto* mesh = new EditableMesh;
    mesh->GetMesh() = quad;
    IDerivedObject* derived = CreateDerivedObject(mesh);
    auto* morph = new MorphModifier;
    morph->SetChannelName(0, WStr(L"Lift"));
    morph->SetTarget(0, {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}});
    morph->SetWeight(0, 0, 25);
    derived->AddModifier(morph);
    ip.CreateObjectNode(derived)->AllocCustAttribContainer();
    auto* curves = Make<ICurveCtl>(REF_TARGET_CLASS_ID, CURVE_CONTROL_CLASS_ID);
    curves->SetNumCurves(1);
    curves->GetControlCurve(0)->Insert({{0, 1}, {}, {0.4f, 0.8f}, CURVEP_BEZIER});
    ip.GetTrackViewRootNode()->AddController(curves, L"Curves", Class_ID(3, 4));
}

// Controllers that refer to other nodes or hold lists: an orientation constraint, a
// link controller, list controllers of each type, Euler and TCB tracks.
void BuildControllers(Interface& ip) {
    INode* a = ip.CreateObjectNode(nullptr, L"A");
    INode* b = ip.CreateObjectNode(nullptr, L"B");
    INode* c = ip.CreateObjectNode(nullptr, L"C");
    auto* orient =
        Make<OrientationConstraint>(CTRL_ROTATION_CLASS_ID, ORIENTATION_CONSTRAINT_CLASS_ID);
    orient->AppendTarget(a, 30);
    orient->AppendTarget(b, 70);
    c->GetTMController()->SetRotationController(orient);
    auto* link = Make<LinkControl>(CTRL_MATRIX3_CLASS_ID, LINK_CONTROL_CLASS_ID);
    b->SetTMController(link);
    link->AddTarget(a, 160);
    link->AddWorld(800);
    const std::pair<SClass_ID, Class_ID> lists[] = {
        {CTRL_FLOAT_CLASS_ID, FLOAT_LIST_CLASS_ID},
        {CTRL_POSITION_CLASS_ID, POSITION_LIST_CLASS_ID},
        {CTRL_ROTATION_CLASS_ID, ROTATION_LIST_CLASS_ID},
        {CTRL_SCALE_CLASS_ID, SCALE_LIST_CLASS_ID}};
    const std::pair<Class_ID, Class_ID> entries[] = {
        {TCB_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID},
        {TCB_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID},
        {EULER_XYZ_CLASS_ID, TCB_ROTATION_CLASS_ID},
        {TCB_SCALE_CLASS_ID, SCALE_XYZ_CLASS_ID}};
    for (int i = 0; i < 4; ++i) {
        auto* list = Make<ListControl>(lists[i].first, lists[i].second);
        list->Append(Make<Control>(lists[i].first, entries[i].first), L"First");
        list->Append(Make<Control>(lists[i].first, entries[i].second));
        list->SetWeight(1, 0.25f);
        ip.GetTrackViewRootNode()->AddController(list, L"List", Class_ID(5, uint32_t(i)));
        if (i > 0) continue;
        AnimateOn();
        float value = 2;
        list->GetSubCtrl(0)->SetValue(160, &value);
        AnimateOff();
    }
    ip.GetScene().Select({c, a});
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_fuzz_seeds <folder>\n", stderr);
        return 2;
    }
    host::StartHost();
    host::Interface& ip = *host::GetCOREInterface();
    const std::pair<const char*, std::function<void(host::Interface&)>> scenes[] = {
        {"empty.tnx", [](host::Interface&) {}},
        {"objects.tnx", host::BuildObjects},
        {"controllers.tnx", host::BuildControllers}};
    for (const auto& [name, build] : scenes) {
        ip.Reset();
        build(ip);
        std::string error;
        if (!host::SaveSceneFile(std::string(argv[1]) + "/" + name, ip, error)) {
            std::fprintf(stderr, "%s\n", error.c_str());
            return 1;
        }
    }
    ip.Reset();
    return 0;
}
