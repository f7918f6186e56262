#pragma once

#include "host/classes/XYZController.h"
#include "host/object/HostClassIds.h"

namespace host {

// A scale controller of three float tracks "X Scale", "Y Scale" and "Z Scale", each
// starting at 1. Its scale axis is always the identity: a written ScaleValue keeps only
// its factors, and a relative write multiplies each track by its factor.
class ScaleXYZ : public XYZController {
public:
    explicit ScaleXYZ(bool loading = false);
    Class_ID ClassID() override { return SCALE_XYZ_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_SCALE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Scale XYZ"); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
};

}  // namespace host
