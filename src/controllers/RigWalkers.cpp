#include "controllers/RigWalkers.h"

#include "animationmanager/ManagerIds.h"
#include "controllers/RigControl.h"
#include "frame/FrameIds.h"
#include "host/object/IDerivedObject.h"

namespace zorvanta {

using namespace host;

RigControl* FindRigControl(Control* c) {
    while (c) {
        if (c->ClassID() == RIG_CONTROL_CLASS_ID && c->SuperClassID() == CTRL_MATRIX3_CLASS_ID)
            return static_cast<RigControl*>(c);
        Control* next = nullptr;
        for (int i = 0; i < c->NumSubs() && !next; ++i) {
            auto* sub = dynamic_cast<Control*>(c->SubAnim(i));
            if (sub && sub->SuperClassID() == CTRL_MATRIX3_CLASS_ID) next = sub;
        }
        c = next;
    }
    return nullptr;
}

Modifier* FindManagerMod(INode* node) {
    if (!node) return nullptr;
    auto* derived = dynamic_cast<IDerivedObject*>(node->GetObjectRef());
    while (derived) {
        for (int i = 0; i < derived->NumModifiers(); ++i) {
            Modifier* mod = derived->GetModifier(i);
            if (mod && mod->ClassID() == ANIMATION_MANAGER_MOD_CLASS_ID) return mod;
        }
        derived = dynamic_cast<IDerivedObject*>(derived->GetObjRef());
    }
    return nullptr;
}

IParamBlock2* FindManagerBlock(INode* node) {
    Modifier* mod = FindManagerMod(node);
    return mod ? mod->GetParamBlock(0) : nullptr;
}

INode* FindRigRoot(INode* node) {
    while (node && !node->IsRootNode()) {
        IParamBlock2* block = FindManagerBlock(node);
        if (block && block->GetInt(AM_ROOT) != 0) return node;
        INode* parent = node->GetParentNode();
        if (!parent || parent->IsRootNode()) return node;
        node = parent;
    }
    return nullptr;
}

}  // namespace zorvanta
