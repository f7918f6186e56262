// The track-bar key filters the library registers when the host has started.
#include "controllers/RotationXYZ.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/Notifications.h"
#include "host/object/TrackBarFilterManager.h"

namespace zorvanta {

using namespace host;

namespace {

// Whether a track's keys belong to the active animation layer. Only a parent that is a
// layer stack makes that question mean anything, and this library builds no layer
// stacks yet: every track keeps its keys, as with no filter at all.
bool LayerKeyFilter(Animatable*, Animatable*, int, Animatable*, INode*) {
    return true;
}

// Drops the X, Y and Z tracks of an Euler rotation controller. The controller's keys
// are the merged key times of those tracks and show on the track bar through the
// controller itself, once; the tracks shown as well would list every rotation key again.
// Everything else keeps its keys.
bool RotationKeyFilter(Animatable*, Animatable* parent, int, Animatable*, INode*) {
    return dynamic_cast<RotationXYZ*>(parent) == nullptr;
}

TrackBarFilterManager* FilterManager() {
    return dynamic_cast<TrackBarFilterManager*>(
        GetCOREInterface(TRACKBAR_FILTER_MANAGER_INTERFACE));
}

// Without a filter manager there is nothing to register with, and nothing is said.
void RegisterLayerFilter(void*, NotifyInfo*) {
    if (TrackBarFilterManager* manager = FilterManager())
        manager->RegisterFilter(LayerKeyFilter, nullptr,
                                WStr(GetString(IDS_ANIMATION_LAYERS_ACTIVE_FILTER)),
                                LAYER_KEY_FILTER_ID, true, true);
}

void RegisterRotationFilter(void*, NotifyInfo*) {
    if (TrackBarFilterManager* manager = FilterManager())
        manager->RegisterFilter(RotationKeyFilter, nullptr, WStr(), ROTATION_KEY_FILTER_ID, true,
                                false);
}

// Runs while the library is mapped: the two registrations wait for the host's start-up.
[[maybe_unused]] const bool kRegistered =
    RegisterNotification(RegisterLayerFilter, nullptr, NOTIFY_SYSTEM_STARTUP) &&
    RegisterNotification(RegisterRotationFilter, nullptr, NOTIFY_SYSTEM_STARTUP);

}  // namespace

}  // namespace zorvanta
