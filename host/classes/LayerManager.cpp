#include "host/classes/LayerManager.h"

#include "host/object/INode.h"

namespace host {

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

}  // namespace host
