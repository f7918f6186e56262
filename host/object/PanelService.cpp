#include "host/object/PanelService.h"

namespace host {

namespace {

PanelService& Headless() {
    static PanelService headless;
    return headless;
}

PanelService*& Installed() {
    static PanelService* service = &Headless();
    return service;
}

}  // namespace

PanelService& GetPanelService() {
    return *Installed();
}

void SetPanelService(PanelService* service) {
    Installed() = service ? service : &Headless();
}

}  // namespace host
