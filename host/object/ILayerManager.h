#pragma once

#include <memory>

#include "host/core/WStr.h"
#include "host/object/IOResult.h"

namespace host {

class INode;
class ISave;
class ILoad;

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

    // Every layer but the default one, as chunks: names and parents.
    virtual void Save(ISave* isave) const = 0;
    // Saved layers read into a manager of their own, apart from this one, so that a
    // reader can check a whole file before it changes the scene. Null, with the fault
    // recorded on iload, when the layers are unsound.
    virtual std::unique_ptr<ILayerManager> LoadApart(ILoad* iload) const = 0;
    // Takes the layers of a manager that LoadApart made, in place of its own; the taken
    // layers keep their addresses, so nodes put on them stay there.
    virtual void Adopt(std::unique_ptr<ILayerManager> loaded) = 0;
    // Reads saved layers in place of the present ones, or fails and keeps them.
    IOResult Load(ILoad* iload) {
        std::unique_ptr<ILayerManager> loaded = LoadApart(iload);
        if (!loaded) return IO_ERROR;
        Adopt(std::move(loaded));
        return IO_OK;
    }
};

}  // namespace host
