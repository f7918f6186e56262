#include "host/classes/ScaleXYZ.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

namespace {

constexpr const wchar_t* kTrackNames[3] = {L"X Scale", L"Y Scale", L"Z Scale"};

}  // namespace

ClassDesc2* GetScaleXYZDesc() {
    static HostClassDesc<ScaleXYZ> desc(L"Scale XYZ", L"Scale XYZ", CTRL_SCALE_CLASS_ID,
                                        SCALE_XYZ_CLASS_ID);
    return &desc;
}

ScaleXYZ::ScaleXYZ(bool loading) : XYZController(kTrackNames, loading, 1.0f) {}

void ScaleXYZ::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const ScaleValue s(ReadTracks(t, valid));
    if (method == CTRL_RELATIVE)
        ApplyScaling(*static_cast<Matrix3*>(val), s);
    else
        *static_cast<ScaleValue*>(val) = s;
}

void ScaleXYZ::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    Point3 factors = static_cast<ScaleValue*>(val)->s;
    if (method == CTRL_RELATIVE) {
        Interval valid = FOREVER;
        const Point3 present = ReadTracks(t, valid);
        for (int i = 0; i < 3; ++i) factors[i] *= present[i];
    }
    WriteTracks(t, factors, commit, CTRL_ABSOLUTE);
}

}  // namespace host
