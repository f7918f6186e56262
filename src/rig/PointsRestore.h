#pragma once

#include "host/object/Hold.h"
#include "host/object/SnapshotRestore.h"
#include "rig/RigSystem.h"

namespace zorvanta {

// The whole template state that a rebuild replaces: every guide point, the extras (a
// rebuild clears their placement flags) and the parameter values the points were made
// from, so that the next edit after an undo compares against the right values.
class RigSystem::PointsRestore : public host::SnapshotRestore<RigSystem, RigSystem::TemplateState> {
public:
    explicit PointsRestore(RigSystem* rig)
        : SnapshotRestore(rig, &RigSystem::SaveTemplateState, &RigSystem::LoadTemplateState,
                          L"PointsRestore") {}
};

}  // namespace zorvanta
