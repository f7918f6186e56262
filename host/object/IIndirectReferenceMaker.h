#pragma once

#include <cstdint>

namespace host {

class ReferenceTarget;

inline constexpr uint32_t I_INDIRECTREFERENCEMAKER = 0x1110;

// References an object keeps without the reference system (weak ones), presented as
// one flat list so that scene files save and load them and clones remap them.
class IIndirectReferenceMaker {
public:
    virtual ~IIndirectReferenceMaker() = default;
    virtual int NumIndirectRefs() = 0;
    // Null past the end.
    virtual ReferenceTarget* GetIndirectReference(int i) = 0;
    // Does nothing past the end.
    virtual void SetIndirectReference(int i, ReferenceTarget* target) = 0;
};

}  // namespace host
