#pragma once

#include "host/core/WStr.h"

namespace host {

class INode;

// A named layer of the scene: nodes belong to one layer each, and layers nest.
class ILayer {
public:
    virtual ~ILayer() = default;
    virtual WStr GetName() const = 0;
    // Moves node onto this layer, off the one it was on.
    virtual bool AddToLayer(INode* node) = 0;
    virtual bool SetParentLayer(ILayer* parent) = 0;
    virtual ILayer* GetParentLayer() const = 0;
};

// The scene's layers, found and made by name.
class ILayerManager {
public:
    virtual ~ILayerManager() = default;
    virtual ILayer* GetLayer(const WStr& name) = 0;
    // Null when a layer of that name exists already.
    virtual ILayer* CreateLayer(const WStr& name) = 0;
    virtual int GetLayerCount() const = 0;
    virtual ILayer* GetLayer(int i) = 0;
    // The layer a node is on (the default layer unless moved).
    virtual ILayer* GetNodeLayer(INode* node) = 0;
    // Back to the default layer alone.
    virtual void Reset() = 0;
};

}  // namespace host
