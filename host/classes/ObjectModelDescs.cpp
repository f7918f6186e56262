#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/IParamBlock2.h"
#include "host/object/TrackViewNode.h"

namespace host {

// Object-model classes that nobody creates from a list, but that the scene reader makes
// by class id before loading them: their descriptors are the host's, like the derived
// object's.

ClassDesc2* GetParamBlock2Desc() {
    static HostClassDesc<IParamBlock2> desc(L"Parameter Block", L"paramblock2",
                                            PARAMETER_BLOCK2_CLASS_ID, PARAM_BLOCK2_CLASS_ID,
                                            false);
    return &desc;
}

ClassDesc2* GetCustAttribContainerDesc() {
    static HostClassDesc<ICustAttribContainer> desc(L"Custom Attribute Container",
                                                    L"custattribcontainer", REF_TARGET_CLASS_ID,
                                                    CUST_ATTRIB_CONTAINER_CLASS_ID, false);
    return &desc;
}

ClassDesc2* GetTrackViewNodeDesc() {
    static HostClassDesc<TrackViewNode> desc(L"Track View Node", L"trackviewnode",
                                             REF_TARGET_CLASS_ID, TRACK_VIEW_NODE_CLASS_ID, false);
    return &desc;
}

}  // namespace host
