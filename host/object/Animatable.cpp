#include "host/object/Animatable.h"

#include "host/object/Hold.h"
#include "host/object/ICustAttribContainer.h"

namespace host {

Animatable::~Animatable() {
    if (!custAttribs_) return;
    theHold.Suspend();
    custAttribs_->DeleteMe();
    theHold.Resume();
}

void Animatable::AllocCustAttribContainer() {
    if (!custAttribs_) custAttribs_ = new ICustAttribContainer(this);
}

}  // namespace host
