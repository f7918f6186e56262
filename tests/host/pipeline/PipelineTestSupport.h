#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "host/classes/EditableMesh.h"
#include "host/classes/HostClasses.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Control.h"
#include "host/object/DerivedObject.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace host::test {

// Every pipeline test starts from and leaves an empty scene with the host's classes
// and those of the pipeline registered.
class PipelineTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        for (ClassDesc2* desc : {GetPolyObjectDesc(), GetEditableMeshDesc(), GetMorphModifierDesc(),
                                 GetDerivedObjectDesc()})
            ClassRegistry::Instance().Register(desc);
        ip->Reset();
    }
    void TearDown() override { ip->Reset(); }

    Interface* ip = GetCOREInterface();
};

// A box centred on the origin, size across, its six quads counter-clockwise seen
// from outside. Vertex v has bit 0 for +x, bit 1 for +y, bit 2 for +z.
inline MNMesh BoxMesh(const Point3& size) {
    MNMesh mesh;
    for (int v = 0; v < 8; ++v)
        mesh.NewVert(
            Point3(v & 1 ? size.x : -size.x, v & 2 ? size.y : -size.y, v & 4 ? size.z : -size.z) *
            0.5f);
    for (auto quad : {std::initializer_list<int>{0, 2, 3, 1},
                      {4, 5, 7, 6},
                      {0, 1, 5, 4},
                      {2, 6, 7, 3},
                      {0, 4, 6, 2},
                      {1, 3, 7, 5}})
        mesh.NewFace(quad);
    return mesh;
}

inline EditableMesh* NewMeshObject(const MNMesh& mesh) {
    auto* obj = new EditableMesh;
    obj->GetMesh() = mesh;
    return obj;
}

inline std::vector<Point3> PointsOf(Object* obj) {
    std::vector<Point3> points;
    for (int i = 0; obj && i < obj->NumPoints(); ++i) points.push_back(obj->GetPoint(i));
    return points;
}

inline void ExpectPointsNear(const std::vector<Point3>& actual, const std::vector<Point3>& expected,
                             float eps = 1e-5f) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i)
        EXPECT_TRUE(actual[i].Equals(expected[i], eps)) << "point " << i;
}

// Test modifiers. Each counts its evaluations, the input changes it hears and the
// instances alive, so that tests see the caches and the ownership at work.
class CountingModifier : public Modifier {
public:
    CountingModifier() { ++alive; }
    ~CountingModifier() override { --alive; }
    void NotifyInputChanged(const Interval&, PartID, RefMessage, ModContext*) override {
        ++inputChanges;
    }
    ChannelMask ChannelsUsed() override { return GEOM_CHANNEL; }
    ChannelMask ChannelsChanged() override { return GEOM_CHANNEL; }
    // Called by each ModifyObject.
    void Count(INode* node) {
        ++evaluations;
        lastNode = node;
    }
    int evaluations = 0;
    int inputChanges = 0;
    INode* lastNode = nullptr;
    static inline int alive = 0;
};

// Scales the points about the origin by a factor.
class ScaleModifier : public CountingModifier {
public:
    explicit ScaleModifier(float factor) : factor_(factor) {}
    void ModifyObject(TimeValue, ModContext&, ObjectState* os, INode* node) override {
        Count(node);
        for (int i = 0; i < os->obj->NumPoints(); ++i)
            os->obj->SetPoint(i, os->obj->GetPoint(i) * factor_);
    }
    void SetFactor(float factor) {
        factor_ = factor;
        NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }

private:
    float factor_;
};

// Moves the points along a direction by the value of its float controller.
class OffsetModifier : public CountingModifier {
public:
    OffsetModifier(const Point3& direction, float amount) : direction_(direction) {
        ReplaceReference(0, NewDefaultFloatController());
        amount_->SetValue(0, &amount);
    }
    void ModifyObject(TimeValue t, ModContext&, ObjectState* os, INode* node) override {
        Count(node);
        const Point3 offset = direction_ * Amount(t);
        for (int i = 0; i < os->obj->NumPoints(); ++i)
            os->obj->SetPoint(i, os->obj->GetPoint(i) + offset);
    }
    Interval LocalValidity(TimeValue t) override {
        Interval valid = FOREVER;
        Amount(t, &valid);
        return valid;
    }
    float Amount(TimeValue t, Interval* valid = nullptr) {
        float v = 0.0f;
        Interval span = FOREVER;
        amount_->GetValue(t, &v, span);
        if (valid) *valid &= span;
        return v;
    }
    Control* GetAmountController() { return amount_; }
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int i) override { return i == 0 ? amount_ : nullptr; }

protected:
    void SetReference(int i, ReferenceTarget* target) override {
        if (i == 0) amount_ = static_cast<Control*>(target);
    }

private:
    Point3 direction_;
    Control* amount_ = nullptr;
};

}  // namespace host::test
