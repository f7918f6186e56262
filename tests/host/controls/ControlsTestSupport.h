#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/classes/LinkControl.h"
#include "host/classes/OrientationConstraint.h"
#include "host/classes/ValueList.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "tests/host/math/MathTestSupport.h"

namespace host::test {

// Every test starts from and leaves an empty scene, with the controllers under test in
// the class directory.
class ControlsTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        for (ClassDesc2* desc :
             {GetFloatListDesc(), GetPositionListDesc(), GetRotationListDesc(), GetScaleListDesc(),
              GetOrientationConstraintDesc(), GetLinkControlDesc()})
            ClassRegistry::Instance().Register(desc);
        ip->Reset();
    }
    void TearDown() override { ip->Reset(); }

    // Runs edit as one undo step.
    template <typename Edit>
    void Step(Edit edit) {
        theHold.Begin();
        edit();
        theHold.Accept(WStr(L"Step"));
    }

    Interface* ip = GetCOREInterface();
    static constexpr TimeValue kFrame = TIME_TICKSPERSEC / 30;
};

// A rigid transform: a random rotation and a translation.
inline Matrix3 RigidTM(MathRandom& rnd) {
    Matrix3 m = QuatMatrix(rnd.Rotation());
    m.SetTrans(rnd.Vector(-10, 10));
    return m;
}

// Undoes every recorded step, expecting each earlier state in turn (states[0] being the
// state before the first step), then redoes them all expecting the later ones.
template <class State, class Read>
void ExpectUndoRedoWalk(const std::vector<State>& states, Read state) {
    for (size_t i = states.size() - 1; i-- > 0;) {
        ASSERT_TRUE(theHold.Undo());
        ASSERT_TRUE(state() == states[i]) << "undo to state " << i;
    }
    for (size_t i = 1; i < states.size(); ++i) {
        ASSERT_TRUE(theHold.Redo());
        ASSERT_TRUE(state() == states[i]) << "redo to state " << i;
    }
}

}  // namespace host::test
