#include "host/classes/LayerManager.h"

#include <string>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"

namespace host {

// A layer's making: undo takes the layer out of the manager and keeps it alive (nodes
// on the redo stack may still name it), redo puts the same layer back.
class LayerManager::CreateRestore : public RestoreObj {
public:
    CreateRestore(LayerManager* manager, Layer* layer) : manager_(manager), layer_(layer) {}
    void Restore(bool) override {
        auto& layers = manager_->layers_;
        for (auto it = layers.begin(); it != layers.end(); ++it)
            if (it->get() == layer_) {
                kept_ = std::move(*it);
                layers.erase(it);
                return;
            }
    }
    void Redo() override {
        if (kept_) manager_->layers_.push_back(std::move(kept_));
    }
    WStr Description() override { return WStr(L"Create Layer"); }

private:
    LayerManager* manager_;
    Layer* layer_;
    std::unique_ptr<Layer> kept_;
};

LayerManager::LayerManager() {
    Reset();
}

ILayer* LayerManager::GetLayer(const WStr& name) {
    for (const auto& layer : layers_)
        if (layer->GetName() == name) return layer.get();
    return nullptr;
}

ILayer* LayerManager::CreateLayer(const WStr& name) {
    if (name.Length() == 0 || GetLayer(name)) return nullptr;
    layers_.push_back(std::make_unique<Layer>(name, false));
    if (theHold.Holding()) theHold.Put(new CreateRestore(this, layers_.back().get()));
    return layers_.back().get();
}

ILayer* LayerManager::GetLayer(int i) {
    return i >= 0 && i < GetLayerCount() ? layers_[size_t(i)].get() : nullptr;
}

ILayer* LayerManager::GetNodeLayer(INode* node) {
    ILayer* layer = node ? node->GetLayer() : nullptr;
    return layer ? layer : layers_.front().get();
}

void LayerManager::Reset() {
    layers_.clear();
    layers_.push_back(std::make_unique<Layer>(WStr(L"0"), true));
}

int LayerManager::IndexOf(const ILayer* layer) const {
    for (size_t i = 0; layer && i < layers_.size(); ++i)
        if (layers_[i].get() == layer) return int(i);
    return -1;
}

void LayerManager::Save(ISave* isave) const {
    for (size_t i = 1; i < layers_.size(); ++i) {
        isave->BeginChunk(chunks::LAYERS_LAYER);
        isave->BeginChunk(chunks::LAYER_NAME);
        isave->WriteWString(layers_[i]->GetName());
        isave->EndChunk();
        isave->WriteChunk(chunks::LAYER_PARENT, int32_t(IndexOf(layers_[i]->GetParentLayer())));
        isave->EndChunk();
    }
}

std::unique_ptr<ILayerManager> LayerManager::LoadApart(ILoad* iload) const {
    auto loaded = std::make_unique<LayerManager>();
    std::vector<int> parents(1, -1);
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        return id == chunks::LAYERS_LAYER ? loaded->LoadLayer(iload, parents) : IO_OK;
    });
    if (result != IO_OK) return nullptr;
    for (int i = 1; i < loaded->GetLayerCount(); ++i) {
        const int parent = parents[size_t(i)];
        if (parent < -1 || parent >= loaded->GetLayerCount() ||
            !loaded->GetLayer(i)->SetParentLayer(loaded->GetLayer(parent))) {
            LoadError(iload, "layer " + std::to_string(i) + " cannot have parent " +
                                 std::to_string(parent));
            return nullptr;
        }
    }
    return loaded;
}

void LayerManager::Adopt(std::unique_ptr<ILayerManager> loaded) {
    if (auto* layers = dynamic_cast<LayerManager*>(loaded.get()))
        layers_ = std::move(layers->layers_);
}

IOResult LayerManager::LoadLayer(ILoad* iload, std::vector<int>& parents) {
    WStr name;
    int32_t parent = -1;
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        if (id == chunks::LAYER_NAME) return iload->ReadWString(name);
        return id == chunks::LAYER_PARENT ? iload->ReadValue(parent) : IO_OK;
    });
    if (result != IO_OK) return IO_ERROR;
    if (!CreateLayer(name)) return LoadError(iload, "a layer name is empty or repeated");
    parents.push_back(parent);
    return IO_OK;
}

}  // namespace host
