#include "host/object/RefTargMonitorRefMaker.h"

namespace host {

RefTargMonitorRefMaker::RefTargMonitorRefMaker(IRefTargMonitor& monitor, ReferenceTarget* target)
    : monitor_(monitor) {
    SetRef(target);
}

RefTargMonitorRefMaker::~RefTargMonitorRefMaker() {
    SetRef(nullptr);
}

void RefTargMonitorRefMaker::SetRef(ReferenceTarget* target) {
    ReplaceReference(0, target, false);
}

RefResult RefTargMonitorRefMaker::NotifyRefChanged(const Interval& changeInt,
                                                   ReferenceTarget* hTarget, PartID& partID,
                                                   RefMessage message, bool propagate) {
    return monitor_.ProcessRefTargMonitorMsg(changeInt, hTarget, partID, message,
                                             hTarget == target_, propagate, this);
}

}  // namespace host
