#pragma once

#include "host/object/ILayerManager.h"

namespace host {

// A scene layer: a name and a parent layer. Membership is kept on the nodes (each
// node names its layer, undoably), so a layer holds no node list that could go stale.
class Layer : public ILayer {
public:
    // The default layer is the one nodes are on until moved; it has no parent.
    Layer(const WStr& name, bool isDefault) : name_(name), default_(isDefault) {}

    WStr GetName() const override { return name_; }
    bool AddToLayer(INode* node) override;
    // Refused for the default layer, and for a parent that is this layer or below it.
    // Undoable.
    bool SetParentLayer(ILayer* parent) override;
    ILayer* GetParentLayer() const override { return parent_; }

private:
    class ParentRestore;

    WStr name_;
    bool default_;
    ILayer* parent_ = nullptr;
};

}  // namespace host
