#pragma once

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/classes/IKeyControl.h"
#include "host/classes/PRS.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace host::test {

// Every scene test starts from and leaves an empty scene with the host's classes.
class SceneTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        ip->Reset();
    }
    void TearDown() override { ip->Reset(); }

    Interface* ip = GetCOREInterface();
};

// A PRS that counts its evaluations, to see the node caches at work.
class CountingPRS : public PRS {
public:
    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        ++evaluations;
        PRS::GetValue(t, val, valid, method);
    }
    int evaluations = 0;
};

// The keys of one node's transform: per track (x, y, z position; x, y, z rotation;
// x, y, z scale) one value at each key time, on linear tangents.
struct NodeKeys {
    std::vector<TimeValue> times;
    std::vector<float> values[9];

    // The track's value at t by straight lines between the keys.
    float At(int track, TimeValue t) const {
        const std::vector<float>& v = values[track];
        if (t <= times.front()) return v.front();
        for (size_t k = 1; k < times.size(); ++k)
            if (t <= times[k]) {
                const float u = float(t - times[k - 1]) / float(times[k] - times[k - 1]);
                return v[k - 1] + (v[k] - v[k - 1]) * u;
            }
        return v.back();
    }
    // Scale, then the rotations about X, Y and Z, then the position.
    Matrix3 Local(TimeValue t) const {
        return ScaleMatrix(Point3(At(6, t), At(7, t), At(8, t))) * RotateXMatrix(At(3, t)) *
               RotateYMatrix(At(4, t)) * RotateZMatrix(At(5, t)) *
               TransMatrix(Point3(At(0, t), At(1, t), At(2, t)));
    }
};

inline uint32_t LinearFlags() {
    return SetOutTanType(SetInTanType(0, BEZKEY_LINEAR), BEZKEY_LINEAR);
}

// Random keys at the given times, written into the node's PRS: position and rotation
// through their float sub-tracks, scale through the bezier scale's keys.
inline NodeKeys KeyNode(INode* node, const std::vector<TimeValue>& times, std::mt19937& rng) {
    NodeKeys keys;
    keys.times = times;
    auto uniform = [&rng](float lo, float hi) {
        return std::uniform_real_distribution<float>(lo, hi)(rng);
    };
    Control* prs = node->GetTMController();
    Control* floats[6] = {prs->GetPositionController()->GetXController(),
                          prs->GetPositionController()->GetYController(),
                          prs->GetPositionController()->GetZController(),
                          prs->GetRotationController()->GetXController(),
                          prs->GetRotationController()->GetYController(),
                          prs->GetRotationController()->GetZController()};
    auto* scale = GetKeyControlInterface(prs->GetScaleController());
    for (TimeValue t : times) {
        for (int track = 0; track < 6; ++track) {
            IBezFloatKey key;
            key.time = t;
            key.val = track < 3 ? uniform(-10, 10) : uniform(-1.5f, 1.5f);
            key.flags = LinearFlags();
            keys.values[track].push_back(key.val);
            GetKeyControlInterface(floats[track])->AppendKey(&key);
        }
        IBezScaleKey key;
        key.time = t;
        key.val = ScaleValue(Point3(uniform(0.5f, 2), uniform(0.5f, 2), uniform(0.5f, 2)));
        key.flags = LinearFlags();
        for (int axis = 0; axis < 3; ++axis) keys.values[6 + axis].push_back(key.val.s[axis]);
        scale->AppendKey(&key);
    }
    return keys;
}

}  // namespace host::test
