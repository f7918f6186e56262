#pragma once

#include <gtest/gtest.h>

#include "controllers/DummyFloat.h"
#include "controllers/DummyRotation.h"
#include "controllers/RotationSpace.h"
#include "controllers/RotationXYZ.h"
#include "controllers/StaticFloat.h"
#include "controllers/StaticPosition.h"
#include "controllers/StaticRotation.h"
#include "controllers/StaticScale.h"
#include "controllers/StaticTransform.h"
#include "controllers/StepFloat.h"
#include "frame/FrameIds.h"
#include "host/classes/HostClassDesc.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace zorvanta::test {

// The controllers registered as the plug-in would register them, over the host's
// classes, in an empty scene.
class ControllerTest : public host::test::SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        Register<StaticFloat>(L"StaticFloat");
        Register<StaticPosition>(L"StaticPosition");
        Register<StaticRotation>(L"StaticRotation");
        Register<StaticScale>(L"StaticScale");
        Register<StaticTransform>(L"StaticTransform");
        Register<RotationXYZ>(L"Rotation XYZ");
        Register<RotationSpace>(L"RotationSpace");
        static host::HostClassDesc<StepFloat> step(L"StepFloat", L"StepFloat",
                                                   host::CTRL_FLOAT_CLASS_ID, STEP_FLOAT_CLASS_ID);
        host::ClassRegistry::Instance().Register(&step);
    }

    // A second registration of a class is refused, and changes nothing. A class with
    // parameter blocks defines them for the descriptor it is registered with, as the
    // catalogue has it do.
    template <class T>
    static void Register(const wchar_t* name) {
        static host::HostClassDesc<T> desc(name, name, T::kSuperClassId, T::kClassId);
        if constexpr (requires { T::DescribeBlocks(&desc); }) T::DescribeBlocks(&desc);
        host::ClassRegistry::Instance().Register(&desc);
    }
};

}  // namespace zorvanta::test
