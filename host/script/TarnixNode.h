#pragma once

#include <string>

#include "host/object/INode.h"
#include "host/script/TarnixRefTarg.h"

namespace host::script {

// A scene node held by a script ($name). Its own properties (name, parent, children,
// transform, position, rotation, scale, controller, baseObject, modifiers, wirecolor,
// handle) come first; any other name goes to its base object's parameters and
// published interfaces. Settable properties change the scene through the node's own
// setters, which record undo inside a hold.
class TarnixNode : public TarnixRefTarg {
public:
    static Value intern(INode* node);
    explicit TarnixNode(INode* node) : TarnixRefTarg(node, Tag::Node) {}

    INode* Node() const { return static_cast<INode*>(Live()); }
    std::wstring Text() const override;
    bool GetProperty(Interpreter& in, const std::wstring& name, Value& out) override;
    bool SetProperty(Interpreter& in, const std::wstring& name, const Value& v) override;
};

// The node of that name in the scene ($name), or undefined.
Value FindNodeValue(const std::wstring& name);
// The object at the bottom of a node's modifier stack.
Object* BaseObjectOf(INode* node);

}  // namespace host::script
