#pragma once

#include "host/object/Control.h"
#include "host/object/INode.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Modifier.h"

namespace zorvanta {

class RigControl;

// How the rig's controllers find one another: from a controller to its node, from a
// node to its animation manager modifier and to the root of its rig, and from any
// transform controller to the rig control inside it.

using host::FindOwnerNode;

// c itself when it is a rig control, else the rig control inside its first matrix
// sub-controller, looked for the same way; null when there is none.
RigControl* FindRigControl(host::Control* c);

// The animation manager modifier in the node's modifier stacks, or null; a node
// without a derived object has none.
host::Modifier* FindManagerMod(host::INode* node);
// The block of that modifier, or null.
host::IParamBlock2* FindManagerBlock(host::INode* node);

// Climbs from node to the first node whose manager block has root set, or to the last
// node below the scene root; null for no node.
host::INode* FindRigRoot(host::INode* node);

// Calls visit for node and all its descendants, depth first, parents before children.
template <class Visit>
void ForEachInHierarchy(host::INode* node, const Visit& visit) {
    if (!node) return;
    visit(node);
    for (int i = 0; i < node->NumberOfChildren(); ++i)
        ForEachInHierarchy(node->GetChildNode(i), visit);
}

// Calls visit for the rig control of every node of node's rig that has one with a block.
template <class Visit>
void ForEachRigControl(host::INode* node, const Visit& visit) {
    ForEachInHierarchy(FindRigRoot(node), [&](host::INode* n) {
        if (RigControl* rc = FindRigControl(n->GetTMController())) visit(rc);
    });
}

}  // namespace zorvanta
