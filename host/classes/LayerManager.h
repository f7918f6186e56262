#pragma once

#include <memory>
#include <vector>

#include "host/classes/Layer.h"

namespace host {

// The scene's layers by name. There is always the default layer "0"; other layers are
// made on request and last until the scene is reset.
class LayerManager : public ILayerManager {
public:
    LayerManager();

    ILayer* GetLayer(const WStr& name) override;
    ILayer* CreateLayer(const WStr& name) override;
    int GetLayerCount() const override { return int(layers_.size()); }
    ILayer* GetLayer(int i) override;
    ILayer* GetNodeLayer(INode* node) override;
    void Reset() override;

private:
    std::vector<std::unique_ptr<Layer>> layers_;
};

}  // namespace host
