#include "host/classes/Layer.h"

#include "host/object/INode.h"

namespace host {

bool Layer::AddToLayer(INode* node) {
    if (!node || node->IsRootNode()) return false;
    node->SetLayer(default_ ? nullptr : this);
    return true;
}

bool Layer::SetParentLayer(ILayer* parent) {
    if (default_) return false;
    for (ILayer* up = parent; up; up = up->GetParentLayer())
        if (up == this) return false;
    parent_ = parent;
    return true;
}

}  // namespace host
