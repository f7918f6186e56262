#include "host/object/Object.h"

#include "host/object/Deformer.h"

namespace host {

void Object::Deform(Deformer* defProc, bool) {
    const int n = NumPoints();
    for (int i = 0; i < n; ++i) SetPoint(i, defProc->Map(i, GetPoint(i)));
    PointsWereChanged();
}

void Object::GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm, bool useSel) {
    const int n = NumPoints();
    if (n == 0) return BaseObject::GetDeformBBox(t, box, tm, useSel);
    box.Init();
    for (int i = 0; i < n; ++i) box += tm ? GetPoint(i) * *tm : GetPoint(i);
}

}  // namespace host
