#pragma once

namespace host {

// How a track's values are shown: Convert turns a stored value into the shown one,
// UnConvert back (an angle in radians is shown in degrees, a fraction as percent).
class ParamDimension {
public:
    virtual ~ParamDimension() = default;
    virtual float Convert(float value) { return value; }
    virtual float UnConvert(float value) { return value; }
};

// The dimensions of the scene model: unitless, angle, percent and world units.
ParamDimension* defaultDim();
ParamDimension* stdAngleDim();
ParamDimension* stdPercentDim();
ParamDimension* stdWorldDim();

}  // namespace host
