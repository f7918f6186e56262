#include "host/object/ParamDimension.h"

namespace host {

namespace {

class ScaledDimension : public ParamDimension {
public:
    explicit ScaledDimension(float factor) : factor_(factor) {}
    float Convert(float value) override { return value * factor_; }
    float UnConvert(float value) override { return value / factor_; }

private:
    float factor_;
};

}  // namespace

ParamDimension* defaultDim() {
    static ParamDimension dim;
    return &dim;
}

ParamDimension* stdAngleDim() {
    static ScaledDimension dim(57.29578f);  // radians shown in degrees
    return &dim;
}

ParamDimension* stdPercentDim() {
    static ScaledDimension dim(100.0f);  // fractions shown as percent
    return &dim;
}

ParamDimension* stdWorldDim() {
    static ParamDimension dim;
    return &dim;
}

}  // namespace host
