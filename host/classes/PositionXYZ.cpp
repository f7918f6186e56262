#include "host/classes/PositionXYZ.h"

namespace host {

namespace {

constexpr const wchar_t* kTrackNames[3] = {L"X Position", L"Y Position", L"Z Position"};

class PositionXYZClassDesc : public ClassDesc2 {
public:
    int IsPublic() override { return 1; }
    Animatable* Create(bool loading) override { return new PositionXYZ(loading); }
    const wchar_t* ClassName() override { return L"Position XYZ"; }
    SClass_ID SuperClassID() override { return CTRL_POSITION_CLASS_ID; }
    Class_ID ClassID() override { return POSITION_XYZ_CLASS_ID; }
    const wchar_t* Category() override { return L""; }
};

}  // namespace

ClassDesc2* GetPositionXYZDesc() {
    static PositionXYZClassDesc desc;
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
