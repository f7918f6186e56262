#include "host/classes/PositionXYZ.h"

#include "host/classes/HostClassDesc.h"

namespace host {

namespace {

constexpr const wchar_t* kTrackNames[3] = {L"X Position", L"Y Position", L"Z Position"};

}  // namespace

ClassDesc2* GetPositionXYZDesc() {
    static HostClassDesc<PositionXYZ> desc(L"Position XYZ", L"Position XYZ", CTRL_POSITION_CLASS_ID,
                                           POSITION_XYZ_CLASS_ID);
    return &desc;
}

PositionXYZ::PositionXYZ(bool loading) : XYZController(kTrackNames, loading) {}

void PositionXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const Point3 p = ReadTracks(t, valid);
    if (method == CTRL_RELATIVE)
        static_cast<Matrix3*>(val)->PreTranslate(p);
    else
        *static_cast<Point3*>(val) = p;
}

void PositionXYZ::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    WriteTracks(t, *static_cast<Point3*>(val), commit, method);
}

}  // namespace host
