#include "host/object/Control.h"

#include "host/object/HostClassIds.h"

namespace host {

namespace {

Control* Make(SClass_ID superClass, Class_ID id) {
    return static_cast<Control*>(CreateInstance(superClass, id));
}

}  // namespace

void Control::CloneControl(Control* dest, RemapDir&) {
    if (!dest || dest == this) return;
    for (int side : {ORT_BEFORE, ORT_AFTER}) dest->SetORT(GetORT(side), side);
}

Control* NewDefaultFloatController() {
    return Make(CTRL_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID);
}
Control* NewDefaultPositionController() {
    return Make(CTRL_POSITION_CLASS_ID, POSITION_XYZ_CLASS_ID);
}
Control* NewDefaultRotationController() {
    return Make(CTRL_ROTATION_CLASS_ID, EULER_XYZ_CLASS_ID);
}
Control* NewDefaultScaleController() {
    return Make(CTRL_SCALE_CLASS_ID, BEZIER_SCALE_CLASS_ID);
}
Control* NewDefaultMatrix3Controller() {
    return Make(CTRL_MATRIX3_CLASS_ID, PRS_CLASS_ID);
}

}  // namespace host
