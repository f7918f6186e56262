#pragma once

#include <gtest/gtest.h>

#include "controllers/DummyFloat.h"
#include "controllers/DummyRotation.h"
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
        static bool registered = [] {
            using host::HostClassDesc;
            static HostClassDesc<StaticFloat> f(L"Static Float", L"StaticFloat",
                                                host::CTRL_FLOAT_CLASS_ID, STATIC_FLOAT_CLASS_ID);
            static HostClassDesc<StaticPosition> p(L"Static Position", L"StaticPosition",
                                                   host::CTRL_POSITION_CLASS_ID,
                                                   STATIC_POSITION_CLASS_ID);
            static HostClassDesc<StaticRotation> r(L"Static Rotation", L"StaticRotation",
                                                   host::CTRL_ROTATION_CLASS_ID,
                                                   STATIC_ROTATION_CLASS_ID);
            static HostClassDesc<StaticScale> s(L"Static Scale", L"StaticScale",
                                                host::CTRL_SCALE_CLASS_ID, STATIC_SCALE_CLASS_ID);
            static HostClassDesc<StaticTransform> m(L"Static Transform", L"StaticTransform",
                                                    host::CTRL_MATRIX3_CLASS_ID,
                                                    STATIC_TRANSFORM_CLASS_ID);
            static HostClassDesc<StepFloat> step(L"Step Float", L"StepFloat",
                                                 host::CTRL_FLOAT_CLASS_ID, STEP_FLOAT_CLASS_ID);
            for (host::ClassDesc2* d : std::initializer_list<host::ClassDesc2*>{
                     &f, &p, &r, &s, &m, &step})
                host::ClassRegistry::Instance().Register(d);
            return true;
        }();
        (void)registered;
    }
};

}  // namespace zorvanta::test
