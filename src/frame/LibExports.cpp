// The library's entry points, as the host calls them when it loads the library.
#include "frame/Catalogue.h"

namespace {

// The host release (22000) in the top 16 bits, its interface number (55) in the next 8,
// the revision (0) in the low 8.
constexpr unsigned long kLibVersion = 0x55f03700;

}  // namespace

extern "C" {

__attribute__((visibility("default"))) const wchar_t* LibDescription() {
    return L"Zorvanta";
}

__attribute__((visibility("default"))) int LibNumberClasses() {
    return zorvanta::CatalogueSize();
}

// Null for an index past the catalogue.
__attribute__((visibility("default"))) host::ClassDesc2* LibClassDesc(unsigned int i) {
    return zorvanta::CatalogueDesc(i);
}

__attribute__((visibility("default"))) unsigned long LibVersion() {
    return kLibVersion;
}

// Registration hangs off static construction, so there is nothing left to do here.
__attribute__((visibility("default"))) int LibInitialize() {
    return 1;
}

__attribute__((visibility("default"))) int LibShutdown() {
    return 1;
}

// The host may defer loading the library until one of its classes is needed.
__attribute__((visibility("default"))) int CanAutoDefer() {
    return 1;
}

__attribute__((visibility("default"))) void LibInit() {}

}  // extern "C"
