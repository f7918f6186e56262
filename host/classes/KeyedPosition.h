#pragma once

#include "host/object/Control.h"

namespace host {

// The value access of a keyframed position track, whatever its curve (Base is a
// KeyframeControl of Point3): a relative read translates in the matrix's own space, a
// relative write adds the offset.
template <class Base>
class KeyedPosition : public Base {
public:
    SClass_ID SuperClassID() override { return CTRL_POSITION_CLASS_ID; }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        const Point3 p = this->Inside(t) ? KeyedPosition::Interpolate(t) : this->Evaluate(t);
        this->NarrowValidity(t, valid);
        if (method == CTRL_RELATIVE)
            static_cast<Matrix3*>(val)->PreTranslate(p);
        else
            *static_cast<Point3*>(val) = p;
    }
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        const Point3 p = *static_cast<Point3*>(val);
        this->WriteValue(t, method == CTRL_RELATIVE ? this->Evaluate(t) + p : p, commit);
    }
};

}  // namespace host
