#pragma once

#include "host/classes/XYZController.h"
#include "host/object/HostClassIds.h"

namespace host {

// The default position controller: three float tracks "X Position", "Y Position" and
// "Z Position". A relative read translates in the matrix's own space; a relative write
// adds the increment to each track.
class PositionXYZ : public XYZController {
public:
    explicit PositionXYZ(bool loading = false);
    Class_ID ClassID() override { return POSITION_XYZ_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_POSITION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Position XYZ"); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
};

}  // namespace host
