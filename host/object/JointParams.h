#pragma once

#include <cstdint>

#include "host/object/AnimProperty.h"
#include "host/object/ILoad.h"
#include "host/object/ISave.h"

namespace host {

// The joint limits of a rotation controller that the IK solvers read, kept under
// PROPID_JOINTPARAMS: per axis (0 X, 1 Y, 2 Z) whether the solver may turn it, whether
// it is held between min and max (radians), and a damping factor (0 free, 1 stiff).
class JointParams : public AnimProperty {
public:
    enum AxisFlags : uint32_t { ACTIVE = 1, LIMITED = 2 };
    static constexpr int kAxes = 3;

    AnimProperty* Clone() const override { return new JointParams(*this); }

    bool Active(int axis) const { return (flags[axis] & ACTIVE) != 0; }
    bool Limited(int axis) const { return (flags[axis] & LIMITED) != 0; }

    // The axes in turn: flags, min, max, damping.
    IOResult Save(ISave* isave) const;
    IOResult Load(ILoad* iload);

    uint32_t flags[kAxes] = {ACTIVE, ACTIVE, ACTIVE};
    float min[kAxes] = {};
    float max[kAxes] = {};
    float damping[kAxes] = {};
};

// The joint parameters of an Euler rotation controller: four more floats that the IK
// solvers keep per joint, saved after the axes.
class JointParamsEuler : public JointParams {
public:
    static constexpr int kExtras = 4;

    AnimProperty* Clone() const override { return new JointParamsEuler(*this); }
    IOResult Save(ISave* isave) const;
    IOResult Load(ILoad* iload);

    float extra[kExtras] = {};
};

}  // namespace host
