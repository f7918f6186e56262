#pragma once

#include "host/object/IPoint2.h"

namespace host {

class INode;
class Interface;
class ViewExp;

// Decides which nodes a pick may take.
class PickNodeCallback {
public:
    virtual ~PickNodeCallback() = default;
    virtual bool Filter(INode* node) = 0;
};

// A viewport mode in which a click picks something, set with Interface::SetPickMode.
// The viewport calls HitTest as the mouse moves and at a click, and Pick after a click
// that hit; Pick answers true to end the mode.
class PickModeCallback {
public:
    virtual ~PickModeCallback() = default;
    // Whether something pickable lies under the window point m of vpt.
    virtual bool HitTest(Interface* ip, ViewExp* vpt, IPoint2 m, int flags) = 0;
    // Takes what the last hit test found; true ends the pick mode.
    virtual bool Pick(Interface* ip, ViewExp* vpt) = 0;
    virtual void EnterMode(Interface*) {}
    virtual void ExitMode(Interface*) {}
    // The filter of the nodes offered, or null for all.
    virtual PickNodeCallback* GetFilter() { return nullptr; }
};

}  // namespace host
