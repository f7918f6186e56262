#include "helpers/ControlInterface.h"

#include "helpers/HelperIds.h"
#include "helpers/ShapeCatalogue.h"
#include "host/object/IParamBlock2.h"
#include "host/script/ScriptError.h"

namespace zorvanta {

using namespace host;

namespace {

std::vector<std::pair<const wchar_t*, int>> ShapeEnumItems() {
    std::vector<std::pair<const wchar_t*, int>> items;
    for (int i = 0; i < kShapeCount; ++i) items.emplace_back(ShapeEnumName(i), i);
    return items;
}

// The value of a setter's one argument.
template <class T>
const T& Arg(FPParams* p) {
    return *p->params.at(0).Get<T>();
}

Point3 RowLengths(const Matrix3& tm) {
    return {Length(tm.GetRow(0)), Length(tm.GetRow(1)), Length(tm.GetRow(2))};
}

}  // namespace

FPInterfaceDesc ControlInterface::MakeDesc(Interface_ID id, const wchar_t* name) {
    return FPInterfaceDesc(
        id, name, FP_MIXIN, {},
        {
            {L"type", kGetType, kSetType, TYPE_ENUM},
            {L"gizmoPos", kGetGizmoPos, kSetGizmoPos, TYPE_POINT3},
            {L"gizmoRot", kGetGizmoRot, kSetGizmoRot, TYPE_QUAT},
            {L"gizmoScale", kGetGizmoScale, kSetGizmoScale, TYPE_POINT3},
            {L"gizmoTM", kGetGizmoTM, kSetGizmoTM, TYPE_MATRIX3},
            {L"selector_face_sel", kGetSelectorFaceSel, kSetSelectorFaceSel, TYPE_BITARRAY},
        },
        {{kTypeEnum, ShapeEnumItems()}});
}

FPStatus ControlInterface::_dispatch_fn(FunctionID fid, TimeValue t, FPValue& result, FPParams* p) {
    switch (fid) {
        case kGetType:
            result.Load(TYPE_ENUM, GetType(t));
            return FPS_OK;
        case kSetType:
            if (!ShapeEnumName(Arg<int>(p)))
                throw RuntimeError(WStr(L"type: no control shape " + std::to_wstring(Arg<int>(p)) +
                                        L" (0 to " + std::to_wstring(kShapeCount - 1) + L")"));
            SetType(Arg<int>(p), t);
            return FPS_OK;
        case kGetGizmoPos:
            result.Load(TYPE_POINT3, GetGizmoPos());
            return FPS_OK;
        case kSetGizmoPos:
            SetGizmoPos(Arg<Point3>(p));
            return FPS_OK;
        case kGetGizmoRot:
            result.Load(TYPE_QUAT, GetGizmoRot());
            return FPS_OK;
        case kSetGizmoRot:
            SetGizmoRot(Arg<Quat>(p));
            return FPS_OK;
        case kGetGizmoScale:
            result.Load(TYPE_POINT3, GetGizmoScale());
            return FPS_OK;
        case kSetGizmoScale:
            SetGizmoScale(Arg<Point3>(p));
            return FPS_OK;
        case kGetGizmoTM:
            result.Load(TYPE_MATRIX3, GetGizmoTM());
            return FPS_OK;
        case kSetGizmoTM:
            SetGizmoTM(Arg<Matrix3>(p));
            return FPS_OK;
        case kGetSelectorFaceSel:
            result.Load(TYPE_BITARRAY, GetSelectorFaceSel());
            return FPS_OK;
        case kSetSelectorFaceSel:
            SetSelectorFaceSel(Arg<BitArray>(p));
            return FPS_OK;
    }
    return FPS_NO_SUCH_FUNCTION;
}

int ControlInterface::GetType(TimeValue t) {
    IParamBlock2* pb = ControlBlock();
    return pb ? pb->GetInt(CH_TYPE, t) : int(ShapeType::None);
}

bool ControlInterface::SetType(int type, TimeValue t) {
    IParamBlock2* pb = ControlBlock();
    if (!pb || !ShapeEnumName(type)) return false;
    pb->SetValue(CH_TYPE, t, type);
    return true;
}

Matrix3 ControlInterface::GetGizmoTM() {
    IParamBlock2* pb = ControlBlock();
    return pb ? pb->GetMatrix3(CH_GIZMO, 0) : Matrix3();
}

void ControlInterface::SetGizmoTM(const Matrix3& tm) {
    if (IParamBlock2* pb = ControlBlock()) pb->SetValue(CH_GIZMO, 0, tm);
}

Point3 ControlInterface::GetGizmoPos() {
    return GetGizmoTM().GetTrans();
}

void ControlInterface::SetGizmoPos(const Point3& pos) {
    Matrix3 tm = GetGizmoTM();
    tm.SetTrans(pos);
    SetGizmoTM(tm);
}

Quat ControlInterface::GetGizmoRot() {
    Matrix3 rotation = GetGizmoTM();
    rotation.NoTrans();
    rotation.Orthogonalize();
    return Quat(rotation);
}

void ControlInterface::SetGizmoRot(const Quat& rot) {
    const Matrix3 old = GetGizmoTM();
    const Point3 lengths = RowLengths(old);
    Matrix3 tm;
    Normalize(rot).MakeMatrix(tm);
    tm.PreScale(lengths);
    tm.SetTrans(old.GetTrans());
    SetGizmoTM(tm);
}

Point3 ControlInterface::GetGizmoScale() {
    return RowLengths(GetGizmoTM());
}

void ControlInterface::SetGizmoScale(const Point3& scale) {
    Matrix3 tm = GetGizmoTM();
    tm.Orthogonalize();
    tm.PreScale(scale);
    SetGizmoTM(tm);
}

}  // namespace zorvanta
