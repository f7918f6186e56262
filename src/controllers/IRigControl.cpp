#include "controllers/IRigControl.h"

namespace zorvanta {

using namespace host;

namespace {

enum RigControlFunction : FunctionID {
    kGetOffsetPos,
    kSetOffsetPos,
    kGetOffsetRot,
    kSetOffsetRot,
    kGetOffsetScale,
    kSetOffsetScale,
    kGetOffsetTM,
    kSetOffsetTM,
    kGetFigureMode,
    kSetFigureMode,
};

const FPInterfaceDesc kRigControlDesc(
    RIG_CONTROL_INTERFACE_ID, L"IRigControl", FP_MIXIN,
    {
        {kGetOffsetPos, L"getOffsetPos", TYPE_POINT3, {}},
        {kSetOffsetPos, L"setOffsetPos", TYPE_VOID, {{L"pos", TYPE_POINT3}}},
        {kGetOffsetRot, L"getOffsetRot", TYPE_QUAT, {}},
        {kSetOffsetRot, L"setOffsetRot", TYPE_VOID, {{L"rot", TYPE_QUAT}}},
        {kGetOffsetScale, L"getOffsetScale", TYPE_POINT3, {}},
        {kSetOffsetScale, L"setOffsetScale", TYPE_VOID, {{L"scale", TYPE_POINT3}}},
        {kGetOffsetTM, L"getOffsetTM", TYPE_MATRIX3, {}},
        {kSetOffsetTM, L"setOffsetTM", TYPE_VOID, {{L"tm", TYPE_MATRIX3}}},
        {kGetFigureMode, L"getFigureMode", TYPE_BOOL, {}},
        {kSetFigureMode, L"setFigureMode", TYPE_VOID, {{L"on", TYPE_BOOL}}},
    },
    {
        {L"offset_pos", kGetOffsetPos, kSetOffsetPos, TYPE_POINT3},
        {L"offset_rot", kGetOffsetRot, kSetOffsetRot, TYPE_QUAT},
        {L"offset_scale", kGetOffsetScale, kSetOffsetScale, TYPE_POINT3},
        {L"offset_tm", kGetOffsetTM, kSetOffsetTM, TYPE_MATRIX3},
        {L"figure_mode", kGetFigureMode, kSetFigureMode, TYPE_BOOL},
    });

template <typename T>
const T& Arg(const FPParams* p) {
    return *p->params[0].Get<T>();
}

}  // namespace

const FPInterfaceDesc* IRigControl::Desc() {
    return &kRigControlDesc;
}

// Arguments arrive bound and type-checked by the caller (Invoke), one a setter.
FPStatus IRigControl::_dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams* p) {
    switch (fid) {
        case kGetOffsetPos:
            result.Load(TYPE_POINT3, GetOffsetPos());
            break;
        case kSetOffsetPos:
            SetOffsetPos(Arg<Point3>(p));
            break;
        case kGetOffsetRot:
            result.Load(TYPE_QUAT, GetOffsetRot());
            break;
        case kSetOffsetRot:
            SetOffsetRot(Arg<Quat>(p));
            break;
        case kGetOffsetScale:
            result.Load(TYPE_POINT3, GetOffsetScale());
            break;
        case kSetOffsetScale:
            SetOffsetScale(Arg<Point3>(p));
            break;
        case kGetOffsetTM:
            result.Load(TYPE_MATRIX3, GetOffsetTM());
            break;
        case kSetOffsetTM:
            SetOffsetTM(Arg<Matrix3>(p));
            break;
        case kGetFigureMode:
            result.Load(TYPE_BOOL, int(GetFigureMode()));
            break;
        case kSetFigureMode:
            SetFigureMode(Arg<int>(p) != 0);
            break;
        default:
            return FPS_NO_SUCH_FUNCTION;
    }
    return FPS_OK;
}

}  // namespace zorvanta
