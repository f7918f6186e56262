#pragma once

#include <memory>
#include <vector>

#include "host/classes/Layer.h"
#include "host/object/IOResult.h"

namespace host {

class ISave;
class ILoad;

// The scene's layers by name. There is always the default layer "0"; other layers are
// made on request (undoably) and last until the scene is reset.
//
// The scene file holds the layers but the default one: names and parents. Nodes keep
// their layers themselves; a scene reader puts its nodes on the layers of a manager it
// loaded apart, and adopting that manager's layers keeps them there.
class LayerManager : public ILayerManager {
public:
    LayerManager();

    ILayer* GetLayer(const WStr& name) override;
    ILayer* CreateLayer(const WStr& name) override;
    int GetLayerCount() const override { return int(layers_.size()); }
    ILayer* GetLayer(int i) override;
    ILayer* GetNodeLayer(INode* node) override;
    void Reset() override;

    void Save(ISave* isave) const override;
    // Fails on an empty or repeated name or a parent that is not a layer or makes a loop.
    std::unique_ptr<ILayerManager> LoadApart(ILoad* iload) const override;
    void Adopt(std::unique_ptr<ILayerManager> loaded) override;

private:
    class CreateRestore;

    // The index of layer in the manager, -1 for null.
    int IndexOf(const ILayer* layer) const;
    // One saved layer: made under its name, its parent index kept for when all are made.
    IOResult LoadLayer(ILoad* iload, std::vector<int>& parents);

    std::vector<std::unique_ptr<Layer>> layers_;
};

}  // namespace host
