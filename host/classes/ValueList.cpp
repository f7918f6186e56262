#include "host/classes/ValueList.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

template class ValueList<float>;
template class ValueList<Point3>;
template class ValueList<Quat>;
template class ValueList<ScaleValue>;

namespace {

template <class Value>
ClassDesc2* ListDesc() {
    using Traits = ListTraits<Value>;
    static HostClassDesc<ValueList<Value>> desc(Traits::kName, Traits::kInternalName,
                                                Traits::kSuperClass, Traits::kClassID);
    return &desc;
}

}  // namespace

ClassDesc2* GetFloatListDesc() {
    return ListDesc<float>();
}
ClassDesc2* GetPositionListDesc() {
    return ListDesc<Point3>();
}
ClassDesc2* GetRotationListDesc() {
    return ListDesc<Quat>();
}
ClassDesc2* GetScaleListDesc() {
    return ListDesc<ScaleValue>();
}

}  // namespace host
