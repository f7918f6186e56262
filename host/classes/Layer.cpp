#include "host/classes/Layer.h"

#include "host/object/Hold.h"
#include "host/object/INode.h"

namespace host {

// A layer's parent before and after a change.
class Layer::ParentRestore : public RestoreObj {
public:
    ParentRestore(Layer* layer, ILayer* before, ILayer* after)
        : layer_(layer), before_(before), after_(after) {}
    void Restore(bool) override { layer_->parent_ = before_; }
    void Redo() override { layer_->parent_ = after_; }
    WStr Description() override { return WStr(L"Layer Parent"); }

private:
    Layer* layer_;
    ILayer* before_;
    ILayer* after_;
};

bool Layer::AddToLayer(INode* node) {
    if (!node || node->IsRootNode()) return false;
    node->SetLayer(default_ ? nullptr : this);
    return true;
}

bool Layer::SetParentLayer(ILayer* parent) {
    if (default_) return false;
    for (ILayer* up = parent; up; up = up->GetParentLayer())
        if (up == this) return false;
    if (theHold.Holding() && parent != parent_)
        theHold.Put(new ParentRestore(this, parent_, parent));
    parent_ = parent;
    return true;
}

}  // namespace host
