#include "host/classes/TargetLoop.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

// The nodes among a target's dependents, direct or not.
class DependentNodes : public DependentEnumProc {
public:
    DepEnumResult proc(ReferenceMaker* maker) override {
        if (auto* node = dynamic_cast<INode*>(maker)) nodes.push_back(node);
        return DEP_ENUM_CONTINUE;
    }
    std::vector<INode*> nodes;
};

}  // namespace

bool TargetWouldLoop(ReferenceTarget* controller, INode* node) {
    if (node->TestForLoop(FOREVER, controller) != REF_SUCCEED) return true;
    DependentNodes driven;
    controller->DoEnumDependents(&driven);
    for (INode* n = node; n; n = n->GetParentNode())
        if (std::find(driven.nodes.begin(), driven.nodes.end(), n) != driven.nodes.end())
            return true;
    return false;
}

}  // namespace host
