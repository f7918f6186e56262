#pragma once

#include <random>
#include <string>
#include <vector>

#include "host/classes/LinkControl.h"
#include "host/classes/ListControl.h"
#include "host/classes/MeshObject.h"
#include "host/classes/MorphModifier.h"
#include "host/classes/OrientationConstraint.h"
#include "host/object/Animate.h"
#include "host/object/ClassRegistry.h"
#include "host/object/HostClassIds.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/IDerivedObject.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Modifier.h"
#include "host/object/Object.h"
#include "host/object/TrackViewNode.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {

// A random scene that uses every class in the class directory: each object class on a
// node of its own under a random parent, each transform controller class on a node's
// transform and each other target class as a custom track, all keyed at random times;
// lists with entries, constraints and links with targets among the nodes, a morph
// modifier on a stack, meshes with geometry and animated block values.
class EveryClassScene {
public:
    EveryClassScene(Interface& ip, uint32_t seed) : ip_(ip), rng_(seed) {}

    void Build() {
        for (int i = 0; i < 3; ++i) NewNode(nullptr);
        AnimateOn();
        for (ClassDesc2* desc : ClassRegistry::Instance().Descriptors()) Place(desc);
        AnimateOff();
    }

private:
    void Place(ClassDesc2* desc) {
        Animatable* made = desc->Create(false);
        const SClass_ID superClass = desc->SuperClassID();
        if (auto* object = dynamic_cast<Object*>(made)) return Dress(NewNode(object), object);
        if (auto* modifier = dynamic_cast<Modifier*>(made)) return Stack(modifier);
        if (auto* control = dynamic_cast<Control*>(made)) return Assign(control, superClass);
        // Blocks, containers and track holders are made by their owners.
        auto* target = dynamic_cast<ReferenceTarget*>(made);
        if (target && !dynamic_cast<IParamBlock2*>(made) &&
            !dynamic_cast<ICustAttribContainer*>(made) && !dynamic_cast<TrackViewNode*>(made))
            return Track(target);
        delete made;
    }

    INode* NewNode(Object* object) {
        INode* node = ip_.CreateObjectNode(object);
        if (!nodes_.empty() && rng_() % 3 != 0)
            nodes_[rng_() % nodes_.size()]->AttachChild(node, false);
        KeyNode(node, Times(), rng_);
        nodes_.push_back(node);
        return node;
    }

    void Dress(INode*, Object* object) {
        if (auto* mesh = dynamic_cast<MeshObject*>(object)) mesh->SetMesh(Mesh());
        for (int i = 0; i < object->NumRefs(); ++i)
            if (auto* block = dynamic_cast<IParamBlock2*>(object->GetReference(i))) Animate(block);
    }

    // Float block values become animated: their keys make controllers of the block.
    void Animate(IParamBlock2* block) {
        for (int i = 0; i < block->NumParams(); ++i) {
            const ParamDef* def = block->GetParamDef(block->IndexToID(i));
            if (!def || def->type != TYPE_WORLD || !(def->flags & P_ANIMATABLE)) continue;
            for (TimeValue t : Times()) block->SetValue(def->id, t, Uniform(0.5f, 4.0f));
        }
    }

    void Stack(Modifier* modifier) {
        auto* mesh =
            static_cast<MeshObject*>(CreateInstance(GEOMOBJECT_CLASS_ID, EDITABLE_MESH_CLASS_ID));
        mesh->SetMesh(Mesh());
        IDerivedObject* derived = CreateDerivedObject(mesh);
        derived->AddModifier(modifier);
        NewNode(derived);
        if (auto* morph = dynamic_cast<MorphModifier*>(modifier)) {
            morph->SetChannelName(0, WStr(L"Smile"));
            morph->SetTarget(0,
                             std::vector<Point3>(size_t(mesh->GetMesh().numv()), Point3(0, 0, 1)));
            for (TimeValue t : Times()) morph->SetWeight(0, t, Uniform(0, 100));
        }
    }

    // Transform controllers go on a node of their own; the others are custom tracks.
    void Assign(Control* control, SClass_ID superClass) {
        Entries(control, superClass);
        Targets(control);
        Key(control, superClass);
        INode* node = NewNode(nullptr);
        Control* prs = node->GetTMController();
        const bool placed =
            superClass == CTRL_POSITION_CLASS_ID   ? prs->SetPositionController(control)
            : superClass == CTRL_ROTATION_CLASS_ID ? prs->SetRotationController(control)
            : superClass == CTRL_SCALE_CLASS_ID    ? prs->SetScaleController(control)
            : superClass == CTRL_MATRIX3_CLASS_ID  ? node->SetTMController(control)
                                                   : false;
        if (!placed) Track(control);
    }

    void Track(ReferenceTarget* track) {
        const std::wstring name = L"Track " + std::to_wstring(++tracks_);
        ip_.GetTrackViewRootNode()->AddController(track, name.c_str(), Class_ID(0x77, tracks_));
    }

    // A list gets two keyed entries of the classes the host would give it, a weight and
    // names, and its second entry active.
    void Entries(Control* control, SClass_ID superClass) {
        auto* list = dynamic_cast<ListControl*>(control);
        if (!list) return;
        for (const wchar_t* name : {L"Base", L"Layer"}) {
            auto* entry = static_cast<Control*>(CreateInstance(superClass, EntryClass(superClass)));
            Key(entry, superClass);
            list->Append(entry, WStr(name));
        }
        list->SetWeight(1, Uniform(0.2f, 0.8f));
        list->SetActive(1);
    }

    void Targets(Control* control) {
        if (auto* orient = dynamic_cast<OrientationConstraint*>(control))
            for (int i = 0; i < 2; ++i) orient->AppendTarget(RandomNode(), Uniform(10, 90));
        if (auto* link = dynamic_cast<LinkControl*>(control))
            for (TimeValue t : {0, 960}) link->AddTarget(RandomNode(), t);
    }

    void Key(Control* control, SClass_ID superClass) {
        for (TimeValue t : Times()) {
            float f = Uniform(-2, 2);
            Point3 p(Uniform(-5, 5), Uniform(-5, 5), Uniform(-5, 5));
            Quat q(AngAxis(Normalize(p), Uniform(-1, 1)));
            ScaleValue s(Point3(Uniform(0.5f, 2), Uniform(0.5f, 2), Uniform(0.5f, 2)));
            void* value = superClass == CTRL_FLOAT_CLASS_ID      ? static_cast<void*>(&f)
                          : superClass == CTRL_POSITION_CLASS_ID ? static_cast<void*>(&p)
                          : superClass == CTRL_ROTATION_CLASS_ID ? static_cast<void*>(&q)
                          : superClass == CTRL_SCALE_CLASS_ID    ? static_cast<void*>(&s)
                                                                 : nullptr;
            if (value) control->SetValue(t, value);
        }
    }

    static Class_ID EntryClass(SClass_ID superClass) {
        switch (superClass) {
            case CTRL_POSITION_CLASS_ID:
                return BEZIER_POSITION_CLASS_ID;
            case CTRL_ROTATION_CLASS_ID:
                return TCB_ROTATION_CLASS_ID;
            case CTRL_SCALE_CLASS_ID:
                return BEZIER_SCALE_CLASS_ID;
            default:
                return BEZIER_FLOAT_CLASS_ID;
        }
    }

    MNMesh Mesh() {
        MNMesh mesh;
        for (int v = 0; v < 5; ++v) mesh.NewVert(Point3(Uniform(-1, 1), Uniform(-1, 1), float(v)));
        mesh.NewFace({0, 1, 2, 3});
        mesh.NewFace({2, 3, 4});
        return mesh;
    }

    std::vector<TimeValue> Times() {
        std::vector<TimeValue> times{0};
        for (int k = 0; k < 3; ++k) times.push_back(times.back() + 160 * int(1 + rng_() % 8));
        return times;
    }

    INode* RandomNode() { return nodes_[rng_() % nodes_.size()]; }
    float Uniform(float lo, float hi) {
        return std::uniform_real_distribution<float>(lo, hi)(rng_);
    }

    Interface& ip_;
    std::mt19937 rng_;
    std::vector<INode*> nodes_;
    int tracks_ = 0;
};

}  // namespace host::test
