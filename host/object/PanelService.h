#pragma once

#include "host/core/WStr.h"
#include "host/object/ClassId.h"

namespace host {

class Animatable;

// Where a class's BeginEditParams adds its rollups and EndEditParams takes them away.
// The user interface installs its own service, which builds the rollup registered for
// the class id; the service the scene model starts with has no user interface and opens
// nothing, so a class's editing state stays as it is.
class PanelService {
public:
    virtual ~PanelService() = default;
    // The rollup shown for owner under title, or null when none is shown.
    virtual void* AddRollup(Animatable* owner, Class_ID classId, const WStr& title) {
        (void)owner, (void)classId, (void)title;
        return nullptr;
    }
    virtual void DeleteRollup(void* rollup) { (void)rollup; }
    // Redraws a rollup's values from its owner, with its signals blocked.
    virtual void RefreshRollup(void* rollup) { (void)rollup; }
    // The text and the pressed state of the button controlId of a rollup.
    virtual void SetButtonText(void* rollup, int controlId, const WStr& text) {
        (void)rollup, (void)controlId, (void)text;
    }
    virtual void SetButtonCheck(void* rollup, int controlId, bool checked) {
        (void)rollup, (void)controlId, (void)checked;
    }
};

// The service in use; the one without a user interface unless one was set.
PanelService& GetPanelService();
// Installs service (null puts the one without a user interface back). The caller keeps
// ownership.
void SetPanelService(PanelService* service);

}  // namespace host
