#pragma once

#include <memory>
#include <vector>

#include "host/script/ControlNodes.h"

namespace host::script {

// One parsed script: its expressions, the slots of its top-level frame, and every
// variable record its nodes point at. Functions made by the script keep it alive.
class Program : public std::enable_shared_from_this<Program> {
public:
    std::unique_ptr<BlockNode> body;
    int frameSize = 0;
    std::vector<const VarInfo*> capturedLocals;
    std::vector<std::unique_ptr<VarInfo>> variables;
};

}  // namespace host::script
